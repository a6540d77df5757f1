// Bookmarks as Firefox's library copies and drags them ("text/x-moz-place") → tree.
#pragma once

#include "base/Date.h"
#include "base/Error.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns a root folder with the items of `places`: JSON objects, UTF-8, with commas or lines between them.
/// "type" ("text/x-moz-place", "…-container", "…-separator") says what an item is, "title", "uri" and "tags"
/// are its texts. Newer versions write no "children" of a folder; they stand in the HTML beside the items
/// (NestedLinks.h), which counts where it has the same kinds of items in the same order. What has no address
/// and is neither folder nor separator is passed over. Links are classified. Linear, without recursion. Fails
/// with a sentence for what is no such list.
Result<Ref<Bookmark>> readPlacesItems(std::string_view places, std::string_view html, Date now);

} // namespace tabulon
