// Taking items out of the tree: deleting, and moving by one row, which takes an item out and puts it in
// again.
#include "window/ViewController.h"

#include <algorithm>

namespace tabulon {

// The item lives on where the caller holds it.
void ViewController::removeItem(Bookmark& item) {
    const std::optional<std::size_t> row = rowForItem(item);
    if (!row) {
        item.detachMe();
        return;
    }
    const std::size_t count = 1 + (isExpanded(item) ? shownCountBelow(item) : 0);
    const Ref<Bookmark> held(&item);
    hoveredRow_.reset();
    outline().willRemoveRows({*row, count});
    rows_.erase(*row, count);
    item.detachMe();
    outline().didRemoveRows();
    window_->showEmptyState(rows_.size() == 0);
}

// In one go: the rows are laid out anew once.
void ViewController::removeManyItems(const std::vector<Bookmark*>& items) {
    std::vector<Ref<Bookmark>> held;
    held.reserve(items.size());
    hoveredRow_.reset();
    outline().willReloadData();
    for (Bookmark* item : items) {
        held.emplace_back(item);
        item->detachMe();
    }
    rows_.show(Ref<Bookmark>(&getMaster()));
    outline().didReloadData();
    window_->showEmptyState(rows_.size() == 0);
}

void ViewController::deleteSelection() {
    std::vector<Bookmark*> items = selectedItems(0, rows_.size());
    if (items.empty())
        return noSelection();
    // From below: what stands in a folder goes before the folder.
    std::ranges::reverse(items);
    if (items.size() > kRowsHandledSingly) {
        removeManyItems(items);
    } else {
        for (Bookmark* item : items)
            removeItem(*item);
    }
    makeDirty();
}

void ViewController::moveUp() {
    const std::optional<std::size_t> row = outline().selectedRow();
    if (row == std::size_t{0} || selectedItems(0, rows_.size()).size() > 1)
        return platform_.beeper.beep();
    if (!row)
        return noSelection();
    const Ref<Bookmark> item(&rows_.at(*row));
    removeItem(*item);
    makeDirty();
    insertNewData(item, *row == 1 ? std::nullopt : std::optional(*row - 2));
}

void ViewController::moveDown() {
    const std::optional<std::size_t> row = outline().selectedRow();
    if (selectedItems(0, rows_.size()).size() > 1)
        return platform_.beeper.beep();
    if (!row)
        return noSelection();
    if (*row + 2 > rows_.size())
        return platform_.beeper.beep();
    const Ref<Bookmark> item(&rows_.at(*row));
    removeItem(*item);
    makeDirty();
    // An expanded folder whose rows were the last ones has nothing to go behind, and is gone.
    if (*row < rows_.size())
        insertNewData(item, *row);
}

} // namespace tabulon
