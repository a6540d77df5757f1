// The document in other formats. Files and panels are the application's.
#include "formats/ExportFormats.h"
#include "window/ViewController.h"

namespace tabulon {

Result<std::string> ViewController::exportToHTML() const {
    return exportFormatNamed("html")->write(getMaster(), platform_.base);
}

} // namespace tabulon
