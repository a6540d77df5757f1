// A fragment of HTML with links in nested lists → tree. It is what a browser's bookmark manager puts on the
// clipboard beside its own form; files of bookmarks are NetscapeScanner.h's.
#pragma once

#include "base/Date.h"
#include "base/Error.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns a root folder with the links ("a" with an "href"), separators ("hr") and folders ("dl", named by
/// the text of its first "dt") of `html` (UTF-8; malformed parts count as U+FFFD), each in the list that it
/// stands in. Addresses and texts stay as they stand; links are classified. Linear, without recursion. Fails
/// with a sentence for tags that are too entangled for that.
Result<Ref<Bookmark>> readNestedLinks(std::string_view html, Date now);

} // namespace tabulon
