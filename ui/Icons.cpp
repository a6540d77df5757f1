#include "ui/Icons.h"

#include "ui/Strings.h"

namespace tabulon {

QIcon iconNamed(std::string_view name) {
    return name.empty() ? QIcon() : QIcon(":/icons/" + toQString(name) + ".svg");
}

} // namespace tabulon
