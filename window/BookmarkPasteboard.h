// Bookmarks and pasteboard items: what is put on a pasteboard for a node, and which node an item becomes.
// Pure rules; the commands around them are in ClipboardCommands and OutlineDragging.
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
/// An HTML anchor; names and URLs stand in it as they are.
inline constexpr std::int64_t kCopyHTML = 3;

/// The node as text: null for a node without a URL. Every unknown format is that of the URL alone.
Text copyText(const Bookmark& node, std::int64_t copyFormat);

/// One item: the record, and the text where the node has one.
PasteboardItem pasteboardItemForBookmark(const Bookmark& node, std::string record, std::int64_t copyFormat);

/// An item for each node that is copied or dragged, with its record in `list`, which is cleared first. Nodes
/// may share one long text: where the texts would have more than `kLargestTexts` bytes in all, no item has
/// one.
std::vector<PasteboardItem> pasteboardItemsForBookmarks(const std::vector<Ref<Bookmark>>& nodes,
                                                        NodeRecords& records, NodeRecords::List list,
                                                        std::int64_t copyFormat);
inline constexpr std::size_t kLargestTexts = std::size_t{1} << 28;

struct ItemReading {
    const NodeRecords& records;
    /// The name of what has none, and the added-date of what is made.
    Text untitled;
    Date now;
    /// Is handed the HTML of an item that is nothing else.
    std::function<void(const std::string& html)> grabAllHTML;
};

/// The node that an item stands for: a live node itself where it has a record of one, else a new one, in no
/// tree. Null where it stands for none; nothing is classified but by `initWithDictionary`. Values that are
/// damaged count as missing.
Ref<Bookmark> pasteboardItemToBookmark(const PasteboardItem& item, const ItemReading& reading);

// The form in which a bookmark can write and read itself, apart from all records: the archive of the node
// with what is below it (model/ArchiveWriter.h). The outline's own copies and drags do not use it.

std::vector<std::string_view> writableTypesForPasteboard();
std::vector<std::string_view> readableTypesForPasteboard();
/// Empty for a type that is not among the writable ones.
std::string pasteboardPropertyListForType(const Bookmark& node, std::string_view type);
/// Notes the type in the log. Null for bytes that are no such archive.
Ref<Bookmark> initWithPasteboardPropertyListOfType(std::string_view bytes, std::string_view type,
                                                   SystemLog& log);

} // namespace tabulon
