#include "window/ClipboardCommands.h"

#include "base/Lines.h"
#include "window/ActionTable.h"
#include "window/EditingCommands.h"
#include "window/ItemExchange.h"
#include "window/MimeItems.h"
#include "window/Outline.h"

#include <algorithm>

namespace tabulon {
namespace {

// Some programs add an empty second item to a single one.
std::size_t itemCount(const std::vector<PasteboardItem>& items) {
    return items.size() == 2 && items[1].values().empty() ? 1 : items.size();
}

} // namespace

ClipboardCommands::ClipboardCommands(Outline& outline, EditingCommands& editing, const ItemExchange& items,
                                     const Platform& platform, ActionTable& actions)
    : outline_(outline), editing_(editing), items_(items), platform_(platform) {
    actions.add("cut:", [this](const MenuItem&) { cut(); });
    actions.add("copy:", [this](const MenuItem&) { copyEditMenu(); });
    actions.add("paste:", [this](const MenuItem&) { pasteEditMenu(); });
}

void ClipboardCommands::copyEditMenu() {
    copyBookmarks();
}

void ClipboardCommands::copyBookmarks() {
    copyBookmarksArray(outline_.getSelectionArray());
}

void ClipboardCommands::copyBookmarksArray(const std::vector<Bookmark*>& items) {
    if (items.empty())
        return; // what was copied or cut before can still be pasted
    std::vector<Ref<Bookmark>> copies;
    copies.reserve(items.size());
    for (const Bookmark* item : items)
        copies.push_back(deepCopy(*item));
    const std::vector<PasteboardItem> made = items_.itemsOf(copies, NodeRecords::List::Copied);
    platform_.pasteboard.setContent(items_.mimeContentOf(made));
}

void ClipboardCommands::cut() {
    copyEditMenu();
    editing_.deleteSelection();
}

void ClipboardCommands::pasteEditMenu() {
    const std::vector<PasteboardItem> items = items_.itemsIn(platform_.pasteboard.content(kReadMimeTypes));
    if (items.empty())
        return;
    const std::string* text = items[0].get(kStringType);
    if (text && !items[0].offers(kItemType) && itemCount(items) == 1 &&
        text->find_first_of("\n\t") != std::string::npos)
        return splitBookmarks(*text);
    std::vector<Ref<Bookmark>> copies;
    for (const PasteboardItem& item : items)
        if (const Ref<Bookmark> bookmark = items_.bookmarkOf(item))
            copies.push_back(deepCopy(*bookmark));
    editing_.addNewItems(copies);
}

void ClipboardCommands::splitBookmarks(std::string_view text) {
    std::vector<Ref<Bookmark>> bookmarks;
    for (const std::string_view line : linesOf(text))
        if (Ref<Bookmark> bookmark = bookmarkOfText(line))
            bookmarks.push_back(std::move(bookmark));
    editing_.addNewItems(bookmarks);
}

Ref<Bookmark> ClipboardCommands::bookmarkOfText(std::string_view string) const {
    const std::size_t tab = string.find('\t');
    Text name = platform_.base.texts.text("Untitled");
    std::string url(string);
    if (tab != std::string_view::npos) {
        name = string.substr(0, tab);
        const std::string_view rest = string.substr(tab + 1);
        url = rest.substr(0, rest.find('\t'));
        if (url.ends_with('\n'))
            std::erase(url, '\n');
    }
    if (url.empty())
        return nullptr;
    Ref<Bookmark> bookmark = Bookmark::init(Date::now(platform_.base.clock));
    bookmark->setItemName(std::move(name));
    bookmark->setItemURL(url);
    bookmark->determineType();
    return bookmark;
}

Ref<Bookmark> ClipboardCommands::splitBookmark(std::string_view string) {
    Ref<Bookmark> bookmark = bookmarkOfText(string);
    if (!bookmark)
        return nullptr;
    editing_.addNewData(bookmark);
    outline_.makeDirty();
    return bookmark;
}

bool ClipboardCommands::validRequestorForSendTypeReturnType(std::string_view sendType, std::string_view) {
    return sendType == kStringType;
}

bool ClipboardCommands::writeSelectionToPasteboardTypes(PasteboardItem& pasteboard,
                                                        const std::vector<std::string_view>& types) const {
    if (std::ranges::find(types, kStringType) == types.end())
        return false;
    pasteboard = {};
    const std::optional<std::size_t> row = outline_.view().selectedRow();
    const Text url = row ? outline_.itemAtRow(*row).itemURL() : Text();
    if (url.isNull())
        return false;
    pasteboard.set(kStringType, url.string());
    return true;
}

bool ClipboardCommands::readSelectionFromPasteboard(const PasteboardItem&) {
    return true;
}

} // namespace tabulon
