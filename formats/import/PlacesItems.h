// "text/x-moz-place", the format in which Firefox's library copies and drags bookmarks → tree.
#pragma once

#include "base/Date.h"
#include "base/Error.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns a root folder with the items of `places`: JSON objects, UTF-8, separated by commas or line feeds.
/// "type" ("text/x-moz-place", "…-container", "…-separator") is the kind of item; "title", "uri" and "tags"
/// are its texts. An item without an address that is neither folder nor separator is skipped. `now` is the
/// date of all new nodes, and the types of links are determined.
///
/// Newer versions write no "children" of a folder; these are in the HTML on the same clipboard. Empty folders
/// are filled from `html` (read by NestedLinks.h) where its top level has the same kinds of items in the same
/// order; otherwise `html` is ignored. Linear, without recursion. Fails with a sentence where `places` is no
/// such list.
Result<Ref<Bookmark>> readPlacesItems(std::string_view places, std::string_view html, Date now);

} // namespace tabulon
