// Expanding and collapsing folders: the flags in the tree, the rows, the selection that survives.
#include "model/TreeWalk.h"
#include "window/ViewController.h"

#include <algorithm>

namespace tabulon {
namespace {

bool expands(ExpansionChange change) {
    return change == ExpansionChange::Expand || change == ExpansionChange::ExpandPlus;
}

bool includesChildren(ExpansionChange change) {
    return change == ExpansionChange::ExpandPlus || change == ExpansionChange::CollapsePlus;
}

// Sets the flags in the tree alone and gives the number of items that changed.
std::size_t setShowHier(Bookmark& item, bool expanded) {
    if (!item.isFolder() || item.showHier() == expanded)
        return 0;
    item.setShowHier(expanded);
    return 1;
}

std::size_t setShowHierBelow(Bookmark& top, bool expanded) {
    std::size_t changes = 0;
    walkBelow(top, [&](Bookmark& item) {
        changes += setShowHier(item, expanded);
        return item.isFolder();
    });
    return changes;
}

std::size_t applyChange(Bookmark& item, ExpansionChange change) {
    std::size_t changes = setShowHier(item, expands(change));
    if (includesChildren(change) && item.isFolder())
        changes += setShowHierBelow(item, expands(change));
    return changes;
}

} // namespace

void ViewController::expandItem(Bookmark& item) {
    changeExpansion(item, ExpansionChange::Expand);
}

void ViewController::collapseItem(Bookmark& item) {
    changeExpansion(item, ExpansionChange::Collapse);
}

void ViewController::expandItemWithChildren(Bookmark& item) {
    changeExpansion(item, ExpansionChange::ExpandPlus);
}

void ViewController::collapseItemWithChildren(Bookmark& item) {
    changeExpansion(item, ExpansionChange::CollapsePlus);
}

void ViewController::doubleClickFolder(Bookmark& folder) {
    autoEdit_.reset(); // the first click was not meant for the name
    isExpanded(folder) ? collapseItem(folder) : expandItem(folder);
    rememberDesktop(1);
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
    changeWholeExpansion(ExpansionChange::ExpandPlus);
}

void ViewController::collapseAll() {
    changeWholeExpansion(ExpansionChange::CollapsePlus);
}

void ViewController::changeExpansion(Bookmark& item, ExpansionChange change) {
    const std::optional<std::size_t> row = rowForItem(item);
    const std::size_t shownBefore = row && isExpanded(item) ? shownCountBelow(item) : 0;
    const std::size_t changes = applyChange(item, change);
    if (changes == 0)
        return;
    if (row)
        replaceRowsBelow(*row, shownBefore);
    rememberDesktop(changes);
    updateURL();
}

// The rows below `row` still are as they were, `shownBefore` of them belonging to its item; the tree has
// changed.
void ViewController::replaceRowsBelow(std::size_t row, std::size_t shownBefore) {
    forgetRowsUnderPointer();
    const std::vector<Bookmark*> selected = selectedItems(row + 1, row + 1 + shownBefore);
    if (shownBefore > 0) {
        outline().willRemoveRows({row + 1, shownBefore});
        rows_.erase(row + 1, shownBefore);
        outline().didRemoveRows();
    }
    if (isExpanded(rows_.at(row))) {
        const std::vector<Bookmark*> shown = shownBelow(rows_.at(row));
        if (!shown.empty()) {
            outline().willInsertRows({row + 1, shown.size()});
            rows_.insert(row + 1, shown);
            outline().didInsertRows();
        }
        if (!selected.empty()) {
            std::vector<Bookmark*> items = selectedItems(0, rows_.size());
            items.insert(items.end(), selected.begin(), selected.end());
            selectItems(items);
        }
    }
    outline().reloadRows({row, 1});
}

void ViewController::changeSelectedExpansion(ExpansionChange change) {
    if (!outline().selectedRow())
        return noSelectedFolder();
    std::vector<Bookmark*> items = selectedItems(0, rows_.size());
    std::ranges::reverse(items);
    if (items.size() <= kRowsHandledSingly) {
        for (Bookmark* item : items)
            changeExpansion(*item, change);
        return;
    }
    std::size_t changes = 0;
    for (Bookmark* item : items)
        changes += applyChange(*item, change);
    if (changes == 0)
        return;
    reloadKeepingSelection();
    rememberDesktop(changes);
}

void ViewController::changeWholeExpansion(ExpansionChange change) {
    const std::size_t changes = setShowHierBelow(getMaster(), expands(change));
    if (changes == 0)
        return;
    reloadKeepingSelection();
    rememberDesktop(changes);
}

void ViewController::reloadKeepingSelection() {
    const std::vector<Bookmark*> selected = selectedItems(0, rows_.size());
    const std::optional<std::size_t> current = outline().selectedRow();
    const Bookmark* currentItem = current ? &rows_.at(*current) : nullptr;
    forgetRowsUnderPointer();
    outline().willReloadData();
    rows_.show(Ref<Bookmark>(&getMaster()));
    outline().didReloadData();
    selectItems(selected);
    if (currentItem)
        if (const auto row = rowForItem(*currentItem))
            outline().scrollRowToVisible(*row);
    updateURL();
}

std::vector<Bookmark*> ViewController::selectedItems(std::size_t from, std::size_t to) const {
    std::vector<Bookmark*> items;
    if (from == to)
        return items;
    for (const RowRange& range : outline().selectedRows())
        for (std::size_t row = std::max(from, range.first); row < std::min(to, range.first + range.count);
             ++row)
            items.push_back(&rows_.at(row));
    return items;
}

void ViewController::selectItems(const std::vector<Bookmark*>& items) {
    std::vector<std::size_t> numbers;
    numbers.reserve(items.size());
    for (const Bookmark* item : items)
        if (const auto row = rowForItem(*item))
            numbers.push_back(*row);
    std::ranges::sort(numbers);
    RowSet rows;
    for (const std::size_t row : numbers)
        addRow(rows, row);
    outline().selectRows(rows);
}

void ViewController::rememberDesktop(std::size_t changes) {
    if (!platform_.base.defaults.boolForKey("RememberDesktop"))
        return;
    for (; changes > 0; --changes)
        document_.updateChangeCount(ChangeKind::Done);
}

} // namespace tabulon
