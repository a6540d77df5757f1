// Pasteboard items as the desktop's programs hand them on: lists of links in the media types that browsers,
// file managers and editors give and take, and a private one for the items as they are.
#pragma once

#include "platform/FileStore.h"
#include "platform/Pasteboard.h"
#include "window/NodeRecords.h"
#include "window/PasteboardItem.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tabulon {

inline constexpr std::string_view kItemsMimeType = "application/x-tabulon-items";

/// The types that `pasteboardItems` looks at.
inline constexpr std::array<std::string_view, 6> kReadMimeTypes = {
    kItemsMimeType, "text/x-moz-url", "text/uri-list", "_NETSCAPE_URL", "text/plain", "text/html"};

/// The items in what another program, or this one, has copied or drags; none where there is nothing to read.
///
/// - Items of this process come back as they were; those of another one count as missing, so that what stands
///   beside them is read.
/// - Files of a list of URIs are items with the file's URL each; those that are link files ("webloc",
///   "mailloc"; at most `kLargestLinkFile` bytes, read from `files`) have the URL in them as well.
/// - Links (text/x-moz-url: UTF-16, lines of URL and title; else a list of URIs, where _NETSCAPE_URL, UTF-8,
///   may have the title of a single one) are items with a URL, and the title where there is one. One link
///   alone has the text beside it, too.
/// - Otherwise text and HTML are one item.
std::vector<PasteboardItem> pasteboardItems(const MimeContent& content, const NodeRecords& records,
                                            FileStore& files);
inline constexpr std::uint64_t kLargestLinkFile = 1 << 20;

/// The items, each with the record of a live node, for every program: their texts line by line, and for the
/// nodes with a URL a list of URIs, Mozilla's list of links with titles, and HTML.
MimeContent mimeContent(const std::vector<PasteboardItem>& items, const NodeRecords& records);

} // namespace tabulon
