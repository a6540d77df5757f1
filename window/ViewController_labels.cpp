// What commands act on, labels, and which commands can be chosen.
#include "window/ViewController.h"

#include <algorithm>

namespace tabulon {

std::vector<Bookmark*> ViewController::getSelectionArray() const {
    if (clickedRow_ && !containsRow(outline().selectedRows(), *clickedRow_))
        return {&rows_.at(*clickedRow_)};
    return selectedItems(0, rows_.size());
}

void ViewController::labelBookmark(std::uint8_t label) {
    std::vector<Bookmark*> changed;
    for (Bookmark* item : getSelectionArray()) {
        if (item->isSeparator() || item->getLabel() == label)
            continue;
        item->setLabel(label);
        changed.push_back(item);
        makeDirty();
    }
    reloadItems(changed);
}

bool ViewController::hasSelection() const {
    return outline().selectedRow().has_value();
}

bool ViewController::hasOneSelectedFolder() const {
    const RowSet rows = outline().selectedRows();
    return rows.size() == 1 && rows[0].count == 1 && rows_.at(rows[0].first).isFolder();
}

} // namespace tabulon
