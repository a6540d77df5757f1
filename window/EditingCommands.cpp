#include "window/EditingCommands.h"

#include "window/ActionTable.h"
#include "window/FieldEditing.h"
#include "window/Outline.h"
#include "window/SharedAlerts.h"
#include "window/StatusLine.h"

namespace tabulon {
namespace {

// Returns the place of the first child for an expanded folder, and of the next sibling for anything else.
ChildPlace placeAfter(Bookmark& anchor, const Bookmark& master) {
    if (isExpanded(anchor) || &anchor == &master)
        return {&anchor, 0};
    Bookmark& folder = *anchor.getParent();
    return {&folder, folder.getChildren()->indexOf(anchor) + 1};
}

bool severalRowsAreSelected(const OutlineView& view) {
    const RowSet rows = view.selectedRows();
    return rows.size() > 1 || (rows.size() == 1 && rows[0].count > 1);
}

} // namespace

EditingCommands::EditingCommands(Outline& outline, FieldEditing& fields, StatusLine& statusLine,
                                 const Platform& platform, ActionTable& actions)
    : outline_(outline), fields_(fields), statusLine_(statusLine), platform_(platform) {
    const auto selected = [this](const MenuItem&) { return outline_.hasSelection(); };
    const auto oneFolder = [this](const MenuItem&) { return outline_.hasOneSelectedFolder(); };
    actions.add("newBookmark:", [this](const MenuItem&) { newBookmark(); });
    actions.add("newFolder:", [this](const MenuItem&) { newFolder(); });
    actions.add(
        "addBookmark:", [this](const MenuItem&) { addBookmark(); }, oneFolder);
    actions.add("insertSeparator:", [this](const MenuItem&) { insertSeparator(); });
    actions.add(
        "delete:", [this](const MenuItem&) { deleteSelection(); }, selected);
    actions.add("moveUp:", [this](const MenuItem&) { moveUp(); });
    actions.add("moveDown:", [this](const MenuItem&) { moveDown(); });
    actions.add(
        "labelBookmark:",
        [this](const MenuItem& sender) { labelBookmark(static_cast<std::uint8_t>(sender.tag)); }, selected);
    actions.add(
        "selectAll:", [this](const MenuItem&) { outline_.view().selectAll(); },
        [this](const MenuItem&) { return outline_.numberOfRows() > 0; });
}

void EditingCommands::addNewData(Ref<Bookmark> item, Editing editing) {
    const std::optional<std::size_t> current = outline_.view().selectedRow();
    if (!current)
        outline_.getMaster().setShowHier(true);
    const Bookmark& inserted = *item;
    insertAtAnchor(current ? outline_.itemAtRow(*current) : outline_.getMaster(), std::move(item));
    if (editing == Editing::Begins)
        if (const auto row = outline_.rowForItem(inserted))
            fields_.beginEditing(Column::Name, *row);
}

void EditingCommands::insertNewData(Ref<Bookmark> item, std::optional<std::size_t> row) {
    insertAtAnchor(row ? outline_.itemAtRow(*row) : outline_.getMaster(), std::move(item));
}

void EditingCommands::insertAtAnchor(Bookmark& anchor, Ref<Bookmark> item) {
    const Bookmark& inserted = *item;
    const ChildPlace place = placeAfter(anchor, outline_.getMaster());
    outline_.insertChild(*place.folder, place.index, std::move(item));
    if (const auto row = outline_.rowForItem(inserted))
        outline_.view().selectRows({{*row, 1}});
}

void EditingCommands::addNewItems(const std::vector<Ref<Bookmark>>& items) {
    if (items.size() > Outline::ManyRows::kRowsHandledSingly)
        return addManyNewItems(items);
    for (const Ref<Bookmark>& item : items) {
        addNewData(item);
        outline_.makeDirty();
    }
}

// Has the result of one `addNewData` after the other: each selects its row, so that the next item is inserted
// after it.
void EditingCommands::addManyNewItems(const std::vector<Ref<Bookmark>>& items) {
    const std::optional<std::size_t> current = outline_.view().selectedRow();
    Bookmark* anchor = current ? &outline_.itemAtRow(*current) : &outline_.getMaster();
    if (!current)
        outline_.getMaster().setShowHier(true);
    {
        const Outline::ManyRows rows(outline_, items.size());
        for (const Ref<Bookmark>& item : items) {
            const ChildPlace place = placeAfter(*anchor, outline_.getMaster());
            outline_.insertChild(*place.folder, place.index, item);
            outline_.makeDirty();
            anchor = item.get();
        }
    }
    outline_.selectRowOf(*anchor);
}

void EditingCommands::newBookmark() {
    Ref<Bookmark> bookmark = Bookmark::init(Date::now(platform_.base.clock));
    bookmark->setItemURL("https://");
    bookmark->setItemName(platform_.base.texts.text("Untitled"));
    addNewData(std::move(bookmark), Editing::Begins);
    outline_.makeDirty();
}

void EditingCommands::newFolder() {
    Ref<Bookmark> folder = Bookmark::init(Date::now(platform_.base.clock));
    folder->makeParent();
    folder->setItemName(platform_.base.texts.text("EmptyFolder"));
    addNewData(std::move(folder), Editing::Begins);
    outline_.makeDirty();
}

void EditingCommands::addBookmark() {
    const std::optional<std::size_t> current = outline_.view().selectedRow();
    if (!current || !outline_.itemAtRow(*current).isFolder())
        return;
    outline_.expandItem(outline_.itemAtRow(*current));
    newBookmark();
}

void EditingCommands::insertSeparator() {
    Ref<Bookmark> separator = Bookmark::init(Date::now(platform_.base.clock));
    separator->setType(kSeparatorType);
    addNewData(std::move(separator));
    outline_.makeDirty();
}

void EditingCommands::deleteSelection() {
    const std::vector<Bookmark*> selected = outline_.selectedItems();
    if (selected.empty())
        return noSelection(platform_, outline_.document());
    const std::vector<Ref<Bookmark>> items(selected.begin(), selected.end());
    std::vector<RemovedItem> places = placesOf(items);
    {
        const Outline::ManyRows rows(outline_, items.size());
        // From the last to the first, so that an item in a folder is removed before the folder.
        for (auto item = items.rbegin(); item != items.rend(); ++item)
            outline_.removeItem(**item);
    }
    outline_.makeDirty();
    didDelete(std::move(places));
}

void EditingCommands::didDelete(std::vector<RemovedItem> removed) {
    outline_.nodesDidLeave();
    const Localization& texts = platform_.base.texts;
    std::string text = deletionText(removed, texts);
    statusLine_.showStatus(std::move(text), texts.text("PutBack"),
                           [this, removed = std::move(removed)] { putBack(removed); });
}

void EditingCommands::putBack(const std::vector<RemovedItem>& removed) {
    fields_.commitEditing();
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

void EditingCommands::moveUp() {
    const std::optional<std::size_t> row = outline_.view().selectedRow();
    if (row == std::size_t{0} || severalRowsAreSelected(outline_.view()))
        return platform_.beeper.beep();
    if (!row)
        return noSelection(platform_, outline_.document());
    const Ref<Bookmark> item(&outline_.itemAtRow(*row));
    outline_.removeItem(*item);
    outline_.makeDirty();
    insertNewData(item, *row == 1 ? std::nullopt : std::optional(*row - 2));
}

void EditingCommands::moveDown() {
    const std::optional<std::size_t> row = outline_.view().selectedRow();
    if (severalRowsAreSelected(outline_.view()))
        return platform_.beeper.beep();
    if (!row)
        return noSelection(platform_, outline_.document());
    if (*row + 2 > outline_.numberOfRows())
        return platform_.beeper.beep();
    const Ref<Bookmark> item(&outline_.itemAtRow(*row));
    std::vector<RemovedItem> place = placesOf({item});
    outline_.removeItem(*item);
    outline_.makeDirty();
    // An expanded folder whose rows were the last ones has no row to be inserted after, and stays removed.
    if (*row < outline_.numberOfRows())
        return insertNewData(item, *row);
    didDelete(std::move(place));
}

void EditingCommands::labelBookmark(std::uint8_t label) {
    std::vector<Bookmark*> changed;
    for (Bookmark* item : outline_.getSelectionArray()) {
        if (item->isSeparator() || item->getLabel() == label)
            continue;
        item->setLabel(label);
        changed.push_back(item);
        outline_.makeDirty();
    }
    outline_.reloadItems(changed);
}

} // namespace tabulon
