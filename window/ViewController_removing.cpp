// Taking items out of the tree: deleting, and moving by one row, which takes an item out and puts it in
// again.
#include "window/ViewController.h"

namespace tabulon {

void ViewController::deleteSelection() {
    const std::vector<Bookmark*> selected = outline_.selectedItems();
    if (selected.empty())
        return noSelection();
    const std::vector<Ref<Bookmark>> items(selected.begin(), selected.end());
    std::vector<RemovedItem> places = placesOf(items);
    {
        const Outline::ManyRows rows(outline_, items.size());
        // From below: what is in a folder goes before the folder.
        for (auto item = items.rbegin(); item != items.rend(); ++item)
            outline_.removeItem(**item);
    }
    outline_.makeDirty();
    tellDeletion(std::move(places));
}

void ViewController::tellDeletion(std::vector<RemovedItem> removed) {
    outline_.nodesDidLeave();
    const Localization& texts = platform_.base.texts;
    std::string text = deletionText(removed, texts);
    statusLine_.showStatus(std::move(text), texts.text("PutBack"),
                           [this, removed = std::move(removed)] { putBack(removed); });
}

void ViewController::putBack(const std::vector<RemovedItem>& removed) {
    commitEditing();
    std::vector<Bookmark*> items;
    {
        const Outline::ManyRows rows(outline_, removed.size());
        for (const RemovedItem& place : removed) {
            outline_.insertChild(*place.folder, place.index, place.item);
            items.push_back(place.item.get());
        }
    }
    outline_.selectItems(items);
    if (const auto row = outline_.rowForItem(*items.front()))
        outline_.view().scrollRowToVisible(*row);
    outline_.makeDirty();
}

void ViewController::moveUp() {
    const std::optional<std::size_t> row = outline_.view().selectedRow();
    if (row == std::size_t{0} || outline_.severalRowsAreSelected())
        return platform_.beeper.beep();
    if (!row)
        return noSelection();
    const Ref<Bookmark> item(&outline_.itemAtRow(*row));
    outline_.removeItem(*item);
    outline_.makeDirty();
    insertNewData(item, *row == 1 ? std::nullopt : std::optional(*row - 2));
}

void ViewController::moveDown() {
    const std::optional<std::size_t> row = outline_.view().selectedRow();
    if (outline_.severalRowsAreSelected())
        return platform_.beeper.beep();
    if (!row)
        return noSelection();
    if (*row + 2 > outline_.numberOfRows())
        return platform_.beeper.beep();
    const Ref<Bookmark> item(&outline_.itemAtRow(*row));
    std::vector<RemovedItem> place = placesOf({item});
    outline_.removeItem(*item);
    outline_.makeDirty();
    // An expanded folder whose rows were the last ones has nothing to go behind, and is gone.
    if (*row < outline_.numberOfRows())
        return insertNewData(item, *row);
    tellDeletion(std::move(place));
}

} // namespace tabulon
