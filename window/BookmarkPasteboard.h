// Bookmarks and pasteboard items: the values that a node has on a pasteboard, and the node that is made of an
// item. Rules without state; the commands that use them are in ClipboardCommands and OutlineDragging.
#pragma once

#include "base/SystemLog.h"
#include "model/Bookmark.h"
#include "window/NodeRecords.h"
#include "window/PasteboardItem.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// The values of the setting "CopyFormat".
inline constexpr std::int64_t kCopyURL = 0;
inline constexpr std::int64_t kCopyURLInBrackets = 1;
inline constexpr std::int64_t kCopyNameAndURL = 2;
/// An HTML anchor. Name and URL are inserted in it without escaping.
inline constexpr std::int64_t kCopyHTML = 3;

/// Returns the node as text in that format, or null if the node's URL is null. An unknown format counts as
/// `kCopyURL`.
Text copyText(const Bookmark& node, std::int64_t copyFormat);

/// Returns an item with the record, and with the text of `copyText` where that is not null.
PasteboardItem pasteboardItemForBookmark(const Bookmark& node, std::string record, std::int64_t copyFormat);

/// Clears `list`, adds the nodes to it, and returns an item with a record for each node, in their order. The
/// items have the texts of `copyText` as well. No item has a text where the names and URLs of all nodes, with
/// a few bytes for each, exceed `kLargestTexts` bytes: many nodes may share one long text.
std::vector<PasteboardItem> pasteboardItemsForBookmarks(const std::vector<Ref<Bookmark>>& nodes,
                                                        NodeRecords& records, NodeRecords::List list,
                                                        std::int64_t copyFormat);
inline constexpr std::size_t kLargestTexts = std::size_t{1} << 28;

/// What `pasteboardItemToBookmark` needs besides the item.
struct ItemReading {
    /// Contains the live nodes that records name.
    const NodeRecords& records;
    /// The name of a new node where the item has none.
    Text untitled;
    /// The added-date of a new node.
    Date now;
    /// Called with the HTML (UTF-8) of an item that has no other value to make a node of. May be empty.
    std::function<void(const std::string& html)> grabAllHTML;
};

/// Returns the node that an item represents, or `nullptr`. The first value that can be read decides:
/// - The record of a live node: that node itself.
/// - A list of Safari: a bookmark if its statistics count one bookmark, else a folder with its entries. An
///   entry without title and URL is skipped, and none is classified.
/// - The URL of a file of this computer: a link with the file's name and a URL of its path, not
///   percent-encoded. A "webloc" or "mailloc" file only names the link of one of the next two values.
/// - A URL, else a text, as the link's URL. Its name is the title of the item, else `untitled`.
/// - HTML: calls `grabAllHTML` and returns `nullptr`.
/// A new node is in no tree. Damaged values count as missing.
Ref<Bookmark> pasteboardItemToBookmark(const PasteboardItem& item, const ItemReading& reading);

// The archive of a node with its subtree (model/ArchiveWriter.h), by which a bookmark can be written and read
// without records. The outline's own copies and drags do not use it.

/// Returns the types that `pasteboardPropertyListForType` writes.
std::vector<std::string_view> writableTypesForPasteboard();
/// Returns the types that a bookmark can be read from.
std::vector<std::string_view> readableTypesForPasteboard();
/// Returns the archive of the node, or an empty string if `type` is not one of the writable types.
std::string pasteboardPropertyListForType(const Bookmark& node, std::string_view type);
/// Returns the node of an archive, in no tree, or `nullptr` if `bytes` are no such archive. `type` is only
/// written to the log.
Ref<Bookmark> initWithPasteboardPropertyListOfType(std::string_view bytes, std::string_view type,
                                                   SystemLog& log);

} // namespace tabulon
