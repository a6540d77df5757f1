// Putting items into the tree: where they land, their rows, and the commands that make new ones.
#include "window/ViewController.h"

namespace tabulon {

void ViewController::addNewData(Ref<Bookmark> item, Editing editing) {
    const std::optional<std::size_t> current = outline_.view().selectedRow();
    if (!current)
        outline_.getMaster().setShowHier(true);
    const Bookmark& inserted = *item;
    insertAtAnchor(current ? outline_.itemAtRow(*current) : outline_.getMaster(), std::move(item));
    if (editing == Editing::Begins)
        if (const auto row = outline_.rowForItem(inserted))
            beginEditing(Column::Name, *row);
}

void ViewController::insertNewData(Ref<Bookmark> item, std::optional<std::size_t> row) {
    insertAtAnchor(row ? outline_.itemAtRow(*row) : outline_.getMaster(), std::move(item));
}

// Inside an expanded folder as its first child, behind anything else as its next sibling.
ChildPlace ViewController::placeAfter(Bookmark& anchor) const {
    if (isExpanded(anchor) || &anchor == &outline_.getMaster())
        return {&anchor, 0};
    Bookmark& folder = *anchor.getParent();
    return {&folder, folder.getChildren()->indexOf(anchor) + 1};
}

void ViewController::insertAtAnchor(Bookmark& anchor, Ref<Bookmark> item) {
    const Bookmark& inserted = *item;
    const ChildPlace place = placeAfter(anchor);
    outline_.insertChild(*place.folder, place.index, std::move(item));
    if (const auto row = outline_.rowForItem(inserted))
        outline_.view().selectRows({{*row, 1}});
}

// As one `addNewData` after the other, each of which selects its row, so that the next goes behind it.
void ViewController::addManyNewData(const std::vector<Ref<Bookmark>>& items) {
    const std::optional<std::size_t> current = outline_.view().selectedRow();
    Bookmark* anchor = current ? &outline_.itemAtRow(*current) : &outline_.getMaster();
    if (!current)
        outline_.getMaster().setShowHier(true);
    {
        const Outline::ManyRows rows(outline_, items.size());
        for (const Ref<Bookmark>& item : items) {
            const ChildPlace place = placeAfter(*anchor);
            outline_.insertChild(*place.folder, place.index, item);
            outline_.makeDirty();
            anchor = item.get();
        }
    }
    outline_.selectRowOf(*anchor);
}

void ViewController::newBookmark() {
    Ref<Bookmark> bookmark = Bookmark::init(now());
    bookmark->setItemURL("https://");
    bookmark->setItemName(platform_.base.texts.text("Untitled"));
    addNewData(std::move(bookmark), Editing::Begins);
    outline_.makeDirty();
}

void ViewController::newFolder() {
    Ref<Bookmark> folder = Bookmark::init(now());
    folder->makeParent();
    folder->setItemName(platform_.base.texts.text("EmptyFolder"));
    addNewData(std::move(folder), Editing::Begins);
    outline_.makeDirty();
}

void ViewController::addBookmark() {
    const std::optional<std::size_t> current = outline_.view().selectedRow();
    if (!current || !outline_.itemAtRow(*current).isFolder())
        return;
    outline_.expandItem(outline_.itemAtRow(*current));
    newBookmark();
}

void ViewController::insertSeparator() {
    Ref<Bookmark> separator = Bookmark::init(now());
    separator->setType(kSeparatorType);
    addNewData(std::move(separator));
    outline_.makeDirty();
}

} // namespace tabulon
