// Putting items into the tree: where they land, their rows, and the commands that make new ones.
#include "window/ViewController.h"

namespace tabulon {

void ViewController::addNewData(Ref<Bookmark> item, Editing editing) {
    const std::optional<std::size_t> current = outline().selectedRow();
    if (!current)
        getMaster().setShowHier(true);
    const Bookmark& inserted = *item;
    insertAtAnchor(current ? rows_.at(*current) : getMaster(), std::move(item));
    if (editing == Editing::Begins)
        if (const auto row = rowForItem(inserted))
            beginEditing(Column::Name, *row);
}

void ViewController::insertNewData(Ref<Bookmark> item, std::optional<std::size_t> row) {
    insertAtAnchor(row ? rows_.at(*row) : getMaster(), std::move(item));
}

// Inside an expanded folder as its first child, behind anything else as its next sibling.
ViewController::Place ViewController::placeAfter(Bookmark& anchor) const {
    if (isExpanded(anchor) || &anchor == &getMaster())
        return {&anchor, 0};
    Bookmark& folder = *anchor.getParent();
    return {&folder, folder.getChildren()->indexOf(anchor) + 1};
}

void ViewController::insertAtAnchor(Bookmark& anchor, Ref<Bookmark> item) {
    const Bookmark& inserted = *item;
    const Place place = placeAfter(anchor);
    insertChild(*place.folder, place.index, std::move(item));
    if (const auto row = rowForItem(inserted))
        outline().selectRows({{*row, 1}});
}

// As one `addNewData` after the other, each of which selects its row, so that the next goes behind it.
void ViewController::addManyNewData(const std::vector<Ref<Bookmark>>& items) {
    const std::optional<std::size_t> current = outline().selectedRow();
    Bookmark* anchor = current ? &rows_.at(*current) : &getMaster();
    if (!current)
        getMaster().setShowHier(true);
    beginChangingManyRows();
    for (const Ref<Bookmark>& item : items) {
        const Place place = placeAfter(*anchor);
        insertChild(*place.folder, place.index, item);
        makeDirty();
        anchor = item.get();
    }
    endChangingManyRows();
    selectRowOf(*anchor);
}

void ViewController::insertChild(Bookmark& folder, std::size_t index, Ref<Bookmark> item) {
    Bookmark& inserted = *item;
    inserted.setDocument(&document_);
    folder.insertChild(index, std::move(item));
    if (changesManyRows_)
        return;
    if (const auto row = rowForNewChild(folder, index))
        insertRowsOf(inserted, *row);
}

// Nothing where the children of the folder are not shown.
std::optional<std::size_t> ViewController::rowForNewChild(const Bookmark& folder, std::size_t index) const {
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

void ViewController::insertRowsOf(Bookmark& item, std::size_t row) {
    std::vector<Bookmark*> shown{&item};
    if (isExpanded(item)) {
        const std::vector<Bookmark*> below = shownBelow(item);
        shown.insert(shown.end(), below.begin(), below.end());
    }
    forgetRowsUnderPointer();
    outline().willInsertRows({row, shown.size()});
    rows_.insert(row, shown);
    outline().didInsertRows();
    window_->showEmptyState(false);
}

void ViewController::newBookmark() {
    Ref<Bookmark> bookmark = Bookmark::init(now());
    bookmark->setItemURL("https://");
    bookmark->setItemName(platform_.base.texts.text("Untitled"));
    addNewData(std::move(bookmark), Editing::Begins);
    makeDirty();
}

void ViewController::newFolder() {
    Ref<Bookmark> folder = Bookmark::init(now());
    folder->makeParent();
    folder->setItemName(platform_.base.texts.text("EmptyFolder"));
    addNewData(std::move(folder), Editing::Begins);
    makeDirty();
}

void ViewController::addBookmark() {
    const std::optional<std::size_t> current = outline().selectedRow();
    if (!current || !rows_.at(*current).isFolder())
        return;
    expandItem(rows_.at(*current));
    newBookmark();
}

void ViewController::insertSeparator() {
    Ref<Bookmark> separator = Bookmark::init(now());
    separator->setType(kSeparatorType);
    addNewData(std::move(separator));
    makeDirty();
}

} // namespace tabulon
