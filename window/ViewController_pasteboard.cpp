// Copy, cut and paste, and the text that stands for a bookmark.
#include "base/Lines.h"
#include "window/BookmarkPasteboard.h"
#include "window/MimeItems.h"
#include "window/ViewController.h"

#include <algorithm>

namespace tabulon {
namespace {

// A pasteboard of one item comes with an empty second one now and then.
std::size_t itemCount(const std::vector<PasteboardItem>& items) {
    return items.size() == 2 && items[1].values().empty() ? 1 : items.size();
}

} // namespace

std::int64_t ViewController::copyFormat() const {
    return platform_.keyboard.isOptionDown() ? kCopyHTML
                                             : platform_.base.defaults.integerForKey("CopyFormat");
}

void ViewController::copyEditMenu() {
    copyBookmarks();
}

void ViewController::copyBookmarks() {
    copyBookmarksArray(outline_.getSelectionArray());
}

void ViewController::copyBookmarksArray(const std::vector<Bookmark*>& items) {
    std::vector<Ref<Bookmark>> copies;
    copies.reserve(items.size());
    for (const Bookmark* item : items)
        copies.push_back(deepCopy(*item));
    const std::vector<PasteboardItem> made =
        pasteboardItemsForBookmarks(copies, shared_.records, NodeRecords::List::Copied, copyFormat());
    if (!made.empty())
        platform_.pasteboard.setContent(mimeContentOf(made));
}

void ViewController::cut() {
    copyEditMenu();
    deleteSelection();
}

MimeContent ViewController::mimeContentOf(const std::vector<PasteboardItem>& items) const {
    return mimeContent(items, shared_.records);
}

MimeContent ViewController::contentForDrag(const std::vector<PasteboardItem>& items) const {
    MimeContent content = mimeContentOf(items);
    platform_.pasteboard.dragBegins(content);
    return content;
}

std::vector<PasteboardItem> ViewController::itemsInForeignDrag(MimeContent content) const {
    // Asking a program a second time takes a while, and it may not answer.
    if (!content.get("text/x-moz-url") && !content.get("text/uri-list"))
        return itemsIn(content);
    const MimeContent unchanged = platform_.pasteboard.draggedContent(kReadMimeTypes);
    for (const auto& [type, bytes] : unchanged.forms())
        content.set(type, bytes);
    return itemsIn(content);
}

std::vector<PasteboardItem> ViewController::itemsIn(const MimeContent& content) const {
    return pasteboardItems(
        content, {.records = shared_.records, .files = platform_.files, .services = platform_.base});
}

Ref<Bookmark> ViewController::bookmarkOf(const PasteboardItem& item) const {
    return pasteboardItemToBookmark(item, {.records = shared_.records,
                                           .untitled = platform_.base.texts.text("Untitled"),
                                           .now = now(),
                                           .grabAllHTML = shared_.grabAllHTML});
}

void ViewController::pasteEditMenu() {
    const std::vector<PasteboardItem> items = itemsIn(platform_.pasteboard.content(kReadMimeTypes));
    if (items.empty())
        return;
    const std::string* text = items[0].get(kStringType);
    if (text && !items[0].offers(kItemType) && itemCount(items) == 1 &&
        text->find_first_of("\n\t") != std::string::npos)
        return splitBookmarks(*text);
    std::vector<Ref<Bookmark>> copies;
    for (const PasteboardItem& item : items)
        if (const Ref<Bookmark> bookmark = bookmarkOf(item))
            copies.push_back(deepCopy(*bookmark));
    addNewItems(copies);
}

void ViewController::splitBookmarks(std::string_view text) {
    std::vector<Ref<Bookmark>> bookmarks;
    for (const std::string_view line : linesOf(text))
        if (Ref<Bookmark> bookmark = bookmarkOfText(line))
            bookmarks.push_back(std::move(bookmark));
    addNewItems(bookmarks);
}

// One after the other, a change each.
void ViewController::addNewItems(const std::vector<Ref<Bookmark>>& items) {
    if (items.size() > Outline::ManyRows::kRowsHandledSingly)
        return addManyNewData(items);
    for (const Ref<Bookmark>& item : items) {
        addNewData(item);
        outline_.makeDirty();
    }
}

Ref<Bookmark> ViewController::bookmarkOfText(std::string_view string) const {
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
    Ref<Bookmark> bookmark = Bookmark::init(now());
    bookmark->setItemName(std::move(name));
    bookmark->setItemURL(url);
    bookmark->determineType();
    return bookmark;
}

Ref<Bookmark> ViewController::splitBookmark(std::string_view string) {
    Ref<Bookmark> bookmark = bookmarkOfText(string);
    if (!bookmark)
        return nullptr;
    addNewData(bookmark);
    outline_.makeDirty();
    return bookmark;
}

bool ViewController::validRequestorForSendTypeReturnType(std::string_view sendType, std::string_view) {
    return sendType == kStringType;
}

bool ViewController::writeSelectionToPasteboardTypes(PasteboardItem& pasteboard,
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

bool ViewController::readSelectionFromPasteboard(const PasteboardItem&) {
    return true;
}

} // namespace tabulon
