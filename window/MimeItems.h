// Pasteboard items as the desktop's programs hand them on: trees and lists of links in the media types that
// browsers, file managers and editors write and read, and a private one for the items as they are.
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

inline constexpr std::string_view kItemsMimeType = "application/x-tabulon-items";

/// The types that `pasteboardItems` looks at.
inline constexpr std::array<std::string_view, 9> kReadMimeTypes = {
    kItemsMimeType,       "text/x-moz-url",   "text/uri-list",
    "_NETSCAPE_URL",      "text/plain",       "text/html",
    "application/x-xbel", "text/x-moz-place", "chromium/x-bookmark-entries"};

struct MimeReading {
    /// What is read of another program's tree goes into the list `Received`, which is cleared first.
    NodeRecords& records;
    FileStore& files;
    const BaseServices& services;
};

/// Returns the items in what another program, or this one, has copied or drags; none where there is nothing
/// to read.
///
/// - Items of this process come back as they were; those of another one count as missing, so that what stands
///   beside them is read.
/// - A tree of another program (ReceivedTree.h) is an item with the record of a live node for each of its
///   topmost nodes.
/// - Files of a list of URIs are items with the file's URL each; those that are link files ("webloc",
///   "mailloc"; at most `kLargestLinkFile` bytes, read from `files`) have the URL in them as well.
/// - Links (LinkLists.h: text/x-moz-url; else a list of URIs, where _NETSCAPE_URL may have the title of a
///   single one) are items with a URL, and the title where there is one. One link alone has the text beside
///   it, too.
/// - Otherwise text and HTML are one item, with line feeds for line ends; but where the HTML has links and
/// the
///   text beside it has no address, or their addresses alone, each link is an item.
std::vector<PasteboardItem> pasteboardItems(const MimeContent& content, const MimeReading& reading);
inline constexpr std::uint64_t kLargestLinkFile = 1 << 20;

/// The items, each with the record of a live node, for every program: their texts line by line, for the nodes
/// with a URL and all links in folders a list of URIs, Mozilla's list of links with titles, and HTML, and the
/// nodes as XBEL and as Chromium's entries. Lists and XBEL of more than `kLargestMimeForm` bytes are left
/// out.
MimeContent mimeContent(const std::vector<PasteboardItem>& items, const NodeRecords& records);
inline constexpr std::size_t kLargestMimeForm = std::size_t{1} << 28;

} // namespace tabulon
