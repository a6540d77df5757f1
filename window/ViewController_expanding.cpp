// The commands that expand and collapse.
#include "window/ViewController.h"

namespace tabulon {

void ViewController::doubleClickFolder(Bookmark& folder) {
    autoEdit_.reset(); // the first click was not meant for the name
    isExpanded(folder) ? outline_.collapseItem(folder) : outline_.expandItem(folder);
    outline_.rememberDesktop(1);
}

void ViewController::expandFolder() {
    changeSelectedExpansion(ExpansionChange::Expand);
}

void ViewController::expandFolderPlus() {
    changeSelectedExpansion(ExpansionChange::ExpandPlus);
}

void ViewController::collapseFolder() {
    changeSelectedExpansion(ExpansionChange::Collapse);
}

void ViewController::collapseFolderPlus() {
    changeSelectedExpansion(ExpansionChange::CollapsePlus);
}

void ViewController::expandAll() {
    outline_.changeWholeExpansion(ExpansionChange::ExpandPlus);
}

void ViewController::collapseAll() {
    outline_.changeWholeExpansion(ExpansionChange::CollapsePlus);
}

void ViewController::changeSelectedExpansion(ExpansionChange change) {
    outline_.hasSelection() ? outline_.changeSelectedExpansion(change) : noSelectedFolder();
}

} // namespace tabulon
