// Bookmarks that browsers keep in property lists: Safari's "Bookmarks.plist" and iCab's "iCab 4 Bookmarks".
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// The new root folder "Master" with the entries of the list; no children where it has none. Both forms of
/// property list, binary and XML, are read. A value of an unexpected kind counts as absent where the entry
/// has a name or an address without it. Safari's entries carry no dates. Fails with a sentence for what is no
/// property list, one that is damaged where it is looked at, whose folders contain each other, list something
/// that is no entry or have something for children that is no list, and one with entries that no folder
/// holds; linear, without recursion.
Result<Ref<Bookmark>> readSafariBookmarks(std::string_view bytes, const ReadOptions& options);
Result<Ref<Bookmark>> readICabBookmarks(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
