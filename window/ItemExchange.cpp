#include "window/ItemExchange.h"

#include "base/Settings.h"
#include "window/BookmarkPasteboard.h"
#include "window/MimeItems.h"
#include "window/SharedState.h"

namespace tabulon {

std::vector<PasteboardItem> ItemExchange::itemsOf(const std::vector<Ref<Bookmark>>& nodes,
                                                  NodeRecords::List list) const {
    const std::int64_t format = platform_.keyboard.isOptionDown()
                                    ? kCopyHTML
                                    : valueOf(platform_.base.defaults, settings::kCopyFormat);
    return pasteboardItemsForBookmarks(nodes, shared_.records, list, format);
}

MimeContent ItemExchange::mimeContentOf(const std::vector<PasteboardItem>& items) const {
    return mimeContent(items, shared_.records);
}

std::vector<PasteboardItem> ItemExchange::itemsIn(const MimeContent& content) const {
    return pasteboardItems(
        content, {.records = shared_.records, .files = platform_.files, .services = platform_.base});
}

Ref<Bookmark> ItemExchange::bookmarkOf(const PasteboardItem& item) const {
    return pasteboardItemToBookmark(
        item, {.records = shared_.records,
               .untitled = platform_.base.texts.text("Untitled"),
               .now = Date::now(platform_.base.clock),
               .grabAllHTML = [this](const std::string& html) { shared_.application.grabAllHTML(html); }});
}

} // namespace tabulon
