// Bookmarks as Chromium's manager and bar copy and drag them ("chromium/x-bookmark-entries") → tree.
#pragma once

#include "base/Date.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns a root folder with the bookmarks; null for bytes that are no such list, whole.
///
/// Numbers are four bytes, low byte first; a text is its length and its units, filled up to four bytes. The
/// list is the number of bytes that follow, the path of a profile, the number of bookmarks, and these:
/// whether it is a link, its address (UTF-8), its title (UTF-16), eight bytes of an identifier, the number of
/// its remarks, each two texts in UTF-8; of a folder then the number of what is in it, and that.
///
/// Linear, without recursion. Nothing is named or classified.
Ref<Bookmark> readChromiumEntries(std::string_view bytes, Date now);

} // namespace tabulon
