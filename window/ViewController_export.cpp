// The document in other formats. Files and panels are the application's.
#include "formats/export/NetscapeHTML.h"
#include "model/Collation.h"
#include "window/ViewController.h"

namespace tabulon {

Result<std::string> ViewController::exportToHTML() const {
    if (!platform_.base.defaults.boolForKey("ExportSortName"))
        return tabulon::exportToHTML(getMaster(), {});
    const Collation collation(platform_.base.texts.locale());
    return tabulon::exportToHTML(getMaster(), {.sortByName = &collation});
}

} // namespace tabulon
