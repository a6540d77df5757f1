#include "window/Outline.h"

#include "base/Settings.h"
#include "base/UserDefaults.h"
#include "model/TreeWalk.h"

#include <algorithm>

namespace tabulon {
Outline::Outline(Document& document, const UserDefaults& defaults)
    : document_(document), defaults_(defaults) {
    rows_.show(Ref<Bookmark>(&getMaster()));
}

void Outline::setMaster(Bookmark& master) {
    forgetRowsUnderPointer();
    if (view_)
        view_->willReloadData();
    rows_.show(Ref<Bookmark>(&master));
    if (view_)
        view_->didReloadData();
    for (RowObserver* observer : rowObservers_)
        observer->masterDidChange();
    nodesDidLeave();
}

int Outline::levelForRow(std::size_t row) const {
    int level = -1;
    for (const Bookmark* node = rows_.at(row).getParent(); node && level < kDeepestIndent;
         node = node->getParent())
        ++level;
    return std::max(level, 0);
}

bool Outline::hasOneSelectedFolder() const {
    const RowSet rows = view_->selectedRows();
    return rows.size() == 1 && rows[0].count == 1 && rows_.at(rows[0].first).isFolder();
}

std::vector<Bookmark*> Outline::selectedItems(std::size_t from, std::size_t to) const {
    std::vector<Bookmark*> items;
    if (from == to)
        return items;
    for (const RowRange& range : view_->selectedRows())
        for (std::size_t row = std::max(from, range.first); row < std::min(to, range.first + range.count);
             ++row)
            items.push_back(&rows_.at(row));
    return items;
}

void Outline::selectItems(const std::vector<Bookmark*>& items) {
    std::vector<std::size_t> numbers;
    numbers.reserve(items.size());
    for (const Bookmark* item : items)
        if (const auto row = rowForItem(*item))
            numbers.push_back(*row);
    std::ranges::sort(numbers);
    RowSet rows;
    for (const std::size_t row : numbers)
        addRow(rows, row);
    view_->selectRows(rows);
}

void Outline::selectRowOf(const Bookmark& item) {
    if (const auto row = rowForItem(item)) {
        view_->selectRows({{*row, 1}});
        view_->scrollRowToVisible(*row);
    }
}

std::vector<Bookmark*> Outline::getSelectionArray() const {
    if (clickedRow_ && !containsRow(view_->selectedRows(), *clickedRow_))
        return {&rows_.at(*clickedRow_)};
    return selectedItems();
}

void Outline::selectionDidChange(SelectedBy cause) {
    if (!view_) // a view reports an empty selection while it is being made
        return;
    for (SelectionObserver* observer : selectionObservers_)
        observer->selectionDidChange(cause);
}

void Outline::currentRowDidChange() {
    for (SelectionObserver* observer : selectionObservers_)
        observer->currentRowDidChange();
}

void Outline::mouseMoved(std::optional<std::size_t> row) {
    if (!row || row != hoveredRow_)
        for (PointerObserver* observer : pointerObservers_)
            observer->pointerIsOver(row);
    hoveredRow_ = row;
}

void Outline::mouseExited() {
    hoveredRow_.reset();
    for (PointerObserver* observer : pointerObservers_)
        observer->pointerDidLeave();
}

// After the change another item may have that row.
void Outline::forgetRowsUnderPointer() {
    hoveredRow_.reset();
    clickedRow_.reset();
    for (RowObserver* observer : rowObservers_)
        observer->rowsWillChange();
}

void Outline::rowsDidChange() {
    for (RowObserver* observer : rowObservers_)
        observer->rowsDidChange();
}

void Outline::changeExpansion(Bookmark& item, ExpansionChange change) {
    const std::optional<std::size_t> row = rowForItem(item);
    const std::size_t shownBefore = row && isExpanded(item) ? shownCountBelow(item) : 0;
    const std::size_t changes = applyExpansion(item, change);
    if (changes == 0)
        return;
    if (row)
        replaceRowsBelow(*row, shownBefore);
    rememberDesktop(changes);
    currentRowDidChange();
}

// Requires: the tree has changed, the rows below `row` have not, and `shownBefore` of them belong to its
// item.
void Outline::replaceRowsBelow(std::size_t row, std::size_t shownBefore) {
    forgetRowsUnderPointer();
    const std::vector<Bookmark*> selected = selectedItems(row + 1, row + 1 + shownBefore);
    if (shownBefore > 0) {
        view_->willRemoveRows({row + 1, shownBefore});
        rows_.erase(row + 1, shownBefore);
        view_->didRemoveRows();
    }
    if (isExpanded(rows_.at(row))) {
        const std::vector<Bookmark*> shown = shownBelow(rows_.at(row));
        if (!shown.empty()) {
            view_->willInsertRows({row + 1, shown.size()});
            rows_.insert(row + 1, shown);
            view_->didInsertRows();
        }
        if (!selected.empty()) {
            std::vector<Bookmark*> items = selectedItems();
            items.insert(items.end(), selected.begin(), selected.end());
            selectItems(items);
        }
    }
    view_->reloadRows({row, 1});
}

void Outline::changeSelectedExpansion(ExpansionChange change) {
    std::vector<Bookmark*> items = selectedItems();
    std::ranges::reverse(items);
    if (items.size() <= ManyRows::kRowsHandledSingly) {
        for (Bookmark* item : items)
            changeExpansion(*item, change);
        return;
    }
    std::size_t changes = 0;
    for (Bookmark* item : items)
        changes += applyExpansion(*item, change);
    if (changes == 0)
        return;
    reloadKeepingSelection();
    rememberDesktop(changes);
}

void Outline::changeWholeExpansion(ExpansionChange change) {
    const std::size_t changes = applyExpansionBelow(getMaster(), change);
    if (changes == 0)
        return;
    reloadKeepingSelection();
    rememberDesktop(changes);
}

void Outline::reloadKeepingSelection() {
    const std::vector<Bookmark*> selected = selectedItems();
    const std::optional<std::size_t> current = view_->selectedRow();
    const Bookmark* currentItem = current ? &rows_.at(*current) : nullptr;
    forgetRowsUnderPointer();
    view_->willReloadData();
    rows_.show(Ref<Bookmark>(&getMaster()));
    view_->didReloadData();
    selectItems(selected);
    if (currentItem)
        if (const auto row = rowForItem(*currentItem))
            view_->scrollRowToVisible(*row);
    currentRowDidChange();
}

// The outermost folder is expanded last, so that all rows are inserted at once.
void Outline::reveal(const Bookmark& node) {
    if (!isInTree(node, getMaster()))
        return;
    Bookmark* ancestor = node.getParent();
    std::size_t changes = 0;
    for (; ancestor && ancestor != &getMaster() && !rowForItem(*ancestor); ancestor = ancestor->getParent()) {
        changes += std::size_t{ancestor->isFolder() && !ancestor->showHier()};
        if (ancestor->isFolder())
            ancestor->setShowHier(true);
    }
    if (!ancestor || ancestor == &getMaster())
        return;
    rememberDesktop(changes);
    expandItem(*ancestor);
}

void Outline::rememberDesktop(std::size_t changes) {
    if (!valueOf(defaults_, settings::kRememberDesktop))
        return;
    for (; changes > 0; --changes)
        document_.updateChangeCount(ChangeKind::Done);
}

void Outline::insertChild(Bookmark& folder, std::size_t index, Ref<Bookmark> item) {
    Bookmark& inserted = *item;
    inserted.setDocument(&document_);
    folder.insertChild(index, std::move(item));
    if (changesManyRows_)
        return;
    if (const auto row = rowForNewChild(folder, index))
        insertRowsOf(inserted, *row);
}

// Returns `nullopt` where the children of the folder are not shown.
std::optional<std::size_t> Outline::rowForNewChild(const Bookmark& folder, std::size_t index) const {
    const bool isRoot = &folder == &getMaster();
    if (!isRoot && !isExpanded(folder))
        return std::nullopt;
    if (index == 0) {
        const auto row = isRoot ? std::nullopt : rowForItem(folder);
        return isRoot ? std::optional<std::size_t>(0) : row ? std::optional(*row + 1) : std::nullopt;
    }
    const Bookmark& previous = *folder.getChildren()->at(index - 1);
    const auto row = rowForItem(previous);
    if (!row)
        return std::nullopt;
    return *row + 1 + (isExpanded(previous) ? shownCountBelow(previous) : 0);
}

void Outline::insertRowsOf(Bookmark& item, std::size_t row) {
    std::vector<Bookmark*> shown{&item};
    if (isExpanded(item)) {
        const std::vector<Bookmark*> below = shownBelow(item);
        shown.insert(shown.end(), below.begin(), below.end());
    }
    forgetRowsUnderPointer();
    view_->willInsertRows({row, shown.size()});
    rows_.insert(row, shown);
    view_->didInsertRows();
    rowsDidChange();
}

// The parent is reset, because the folder may be freed before the item.
void Outline::removeItem(Bookmark& item) {
    const Ref<Bookmark> held(&item);
    const std::optional<std::size_t> row = changesManyRows_ ? std::nullopt : rowForItem(item);
    if (!row) {
        item.detachMe();
        item.setParent(nullptr);
        return;
    }
    const std::size_t count = 1 + (isExpanded(item) ? shownCountBelow(item) : 0);
    forgetRowsUnderPointer();
    view_->willRemoveRows({*row, count});
    rows_.erase(*row, count);
    item.detachMe();
    item.setParent(nullptr);
    view_->didRemoveRows();
    rowsDidChange();
}

void Outline::childrenDidReorder(Bookmark& folder) {
    if (&folder == &getMaster())
        return reloadKeepingSelection();
    if (const auto row = rowForItem(folder))
        replaceRowsBelow(*row, isExpanded(folder) ? shownCountBelow(folder) : 0);
}

void Outline::reloadItems(const std::vector<Bookmark*>& items) {
    RowSet rows;
    for (const Bookmark* item : items)
        if (const auto row = rowForItem(*item))
            addRow(rows, *row);
    for (const RowRange& range : rows)
        view_->reloadRows(range);
}

void Outline::makeDirty() {
    for (RowObserver* observer : rowObservers_)
        observer->treeDidChange();
    document_.updateChangeCount(ChangeKind::Done);
}

void Outline::itemDidChange(const Bookmark& item) {
    if (const auto row = rowForItem(item))
        view_->reloadRows({*row, 1});
    makeDirty();
}

void Outline::nodesDidLeave() {
    for (RowObserver* observer : rowObservers_)
        observer->nodesDidLeave();
}

Outline::ManyRows::ManyRows(Outline& outline, std::size_t count)
    : outline_(count > kRowsHandledSingly ? &outline : nullptr) {
    if (!outline_)
        return;
    outline_->forgetRowsUnderPointer();
    outline_->view_->willReloadData();
    outline_->changesManyRows_ = true;
}

Outline::ManyRows::~ManyRows() {
    if (!outline_)
        return;
    outline_->changesManyRows_ = false;
    outline_->rows_.show(Ref<Bookmark>(&outline_->getMaster()));
    outline_->view_->didReloadData();
    outline_->rowsDidChange();
}

} // namespace tabulon
