// Taking items out of the tree: deleting, and moving by one row, which takes an item out and puts it in
// again.
#include "window/ViewController.h"

namespace tabulon {

// Many changes of rows are made without the view, which then shows all rows anew. Whoever removes nodes
// meanwhile keeps them until the end.
void ViewController::beginChangingManyRows() {
    forgetRowsUnderPointer();
    outline().willReloadData();
    changesManyRows_ = true;
}

void ViewController::endChangingManyRows() {
    changesManyRows_ = false;
    rows_.show(Ref<Bookmark>(&getMaster()));
    outline().didReloadData();
    window_->showEmptyState(rows_.size() == 0);
}

// The item lives on where the caller holds it. It has no parent then: its folder may be freed before it.
void ViewController::removeItem(Bookmark& item) {
    const Ref<Bookmark> held(&item);
    const std::optional<std::size_t> row = changesManyRows_ ? std::nullopt : rowForItem(item);
    if (!row) {
        item.detachMe();
        item.setParent(nullptr);
        return;
    }
    const std::size_t count = 1 + (isExpanded(item) ? shownCountBelow(item) : 0);
    forgetRowsUnderPointer();
    outline().willRemoveRows({*row, count});
    rows_.erase(*row, count);
    item.detachMe();
    item.setParent(nullptr);
    outline().didRemoveRows();
    window_->showEmptyState(rows_.size() == 0);
}

void ViewController::deleteSelection() {
    const std::vector<Bookmark*> selected = selectedItems(0, rows_.size());
    if (selected.empty())
        return noSelection();
    const std::vector<Ref<Bookmark>> items(selected.begin(), selected.end());
    std::vector<RemovedItem> places = placesOf(items);
    const bool many = items.size() > kRowsHandledSingly;
    if (many)
        beginChangingManyRows();
    // From below: what stands in a folder goes before the folder.
    for (auto item = items.rbegin(); item != items.rend(); ++item)
        removeItem(**item);
    if (many)
        endChangingManyRows();
    makeDirty();
    tellDeletion(std::move(places));
}

void ViewController::tellDeletion(std::vector<RemovedItem> removed) {
    nodesDidLeave();
    const Localization& texts = platform_.base.texts;
    std::string text = deletionText(removed, texts);
    statusLine_.showStatus(std::move(text), texts.text("PutBack"),
                           [this, removed = std::move(removed)] { putBack(removed); });
}

void ViewController::putBack(const std::vector<RemovedItem>& removed) {
    commitEditing();
    const bool many = removed.size() > kRowsHandledSingly;
    if (many)
        beginChangingManyRows();
    std::vector<Bookmark*> items;
    for (const RemovedItem& place : removed) {
        insertChild(*place.folder, place.index, place.item);
        items.push_back(place.item.get());
    }
    if (many)
        endChangingManyRows();
    selectItems(items);
    if (const auto row = rowForItem(*items.front()))
        outline().scrollRowToVisible(*row);
    makeDirty();
}

bool ViewController::severalRowsAreSelected() const {
    const RowSet rows = outline().selectedRows();
    return rows.size() > 1 || (rows.size() == 1 && rows[0].count > 1);
}

void ViewController::moveUp() {
    const std::optional<std::size_t> row = outline().selectedRow();
    if (row == std::size_t{0} || severalRowsAreSelected())
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
    if (severalRowsAreSelected())
        return platform_.beeper.beep();
    if (!row)
        return noSelection();
    if (*row + 2 > rows_.size())
        return platform_.beeper.beep();
    const Ref<Bookmark> item(&rows_.at(*row));
    std::vector<RemovedItem> place = placesOf({item});
    removeItem(*item);
    makeDirty();
    // An expanded folder whose rows were the last ones has nothing to go behind, and is gone.
    if (*row < rows_.size())
        return insertNewData(item, *row);
    tellDeletion(std::move(place));
}

} // namespace tabulon
