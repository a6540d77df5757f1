// Pasteboard items in the types of the desktop's programs: trees and lists of links in the media types that
// browsers, file managers and editors write and read, and a private type for the items as they are.
#pragma once

#include "base/BaseServices.h"
#include "platform/FileStore.h"
#include "platform/Pasteboard.h"
#include "window/NodeRecords.h"
#include "window/PasteboardItem.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tabulon {

/// The private type. Only the process that wrote it can read it.
inline constexpr std::string_view kItemsMimeType = "application/x-tabulon-items";

/// The types that `pasteboardItems` reads.
inline constexpr std::array<std::string_view, 9> kReadMimeTypes = {
    kItemsMimeType,       "text/x-moz-url",   "text/uri-list",
    "_NETSCAPE_URL",      "text/plain",       "text/html",
    "application/x-xbel", "text/x-moz-place", "chromium/x-bookmark-entries"};

/// What `pasteboardItems` needs besides the content.
struct MimeReading {
    /// Receives the nodes of another program's tree in the list `Received`, which is cleared first.
    NodeRecords& records;
    /// Reads link files.
    FileStore& files;
    const BaseServices& services;
};

/// Returns the items in what a program, this one included, has copied or drags. Returns an empty list if the
/// content has nothing that can be read. The first of these that is found is used:
/// - The private type: the items of this process as they were. Those of another process are ignored.
/// - A tree of another program (ReceivedTree.h): an item with the record of a live node for each of its
///   topmost nodes.
/// - Links (LinkLists.h), from "text/x-moz-url", else from "text/uri-list", where "_NETSCAPE_URL" may have
///   the title of a single link, else from "_NETSCAPE_URL". A link is an item with a URL, and the title if
///   there is one. A single link has the text and the HTML of the content as well.
/// - The URL of a file among these links is an item with the URL of the file. A "webloc" or "mailloc" file of
///   at most `kLargestLinkFile` bytes has the URL that it contains as well. A "url" or "desktop" file of that
///   size that contains a link is an item with that link instead.
/// - Text and HTML: one item. Where the HTML has links, and the text has no address or only the addresses of
///   these links, each link is an item instead.
/// In texts, a carriage return before a line feed is removed.
std::vector<PasteboardItem> pasteboardItems(const MimeContent& content, const MimeReading& reading);
/// In bytes.
inline constexpr std::uint64_t kLargestLinkFile = 1 << 20;

/// Returns the items, each with the record of a live node, in the types that other programs read:
/// - The private type, with all items.
/// - Their texts, joined by line feeds.
/// - The links among the nodes and in folders among them, as a list of URIs, as Mozilla's list with titles,
///   and as HTML. All three lists are left out if one of them has more than `kLargestMimeForm` bytes.
/// - The nodes as XBEL, which is left out if it has more bytes than that, and as Chromium's entries, which
///   have a smaller limit.
/// Types without content are left out. An item without a live node adds its text only.
MimeContent mimeContent(const std::vector<PasteboardItem>& items, const NodeRecords& records);
/// In bytes.
inline constexpr std::size_t kLargestMimeForm = std::size_t{1} << 28;

} // namespace tabulon
