// "chromium/x-bookmark-entries", the format in which the bookmark manager and the bookmark bar of Chromium
// copy and drag bookmarks → tree.
#pragma once

#include "base/Date.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns a root folder with the bookmarks, or `nullptr` for bytes that are no such list or end too early.
/// Bytes after the list are ignored. `now` is the date of all new nodes.
///
/// Numbers have four bytes, low byte first. A text is its length in units, then the units, then zero bytes up
/// to a multiple of four bytes. The list is: the number of bytes that follow, the path of a profile (UTF-8),
/// the number of entries, and the entries. An entry is: a number that is 0 for a folder, its address (UTF-8),
/// its title (UTF-16), an identifier of eight bytes, the number of its remarks, and for each remark two texts
/// (UTF-8). A folder continues with the number of its children, and the children.
///
/// Malformed text is decoded to U+FFFD. The types of links are not determined, and empty names stay empty.
/// Linear, without recursion.
Ref<Bookmark> readChromiumEntries(std::string_view bytes, Date now);

} // namespace tabulon
