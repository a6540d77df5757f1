// A fragment of HTML with links in nested lists → tree. A browser's bookmark manager puts it on the clipboard
// together with its own format. Bookmark files are read by NetscapeScanner.h.
#pragma once

#include "base/Date.h"
#include "base/Error.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns a root folder with the links ("a" with an "href"), separators ("hr") and folders ("dl") of `html`,
/// each in the list that contains it. `html` is UTF-8; malformed parts count as U+FFFD. `now` is the date of
/// all new nodes.
///
/// A folder's name is the text of its first "dt", without a link in it and the text before that link.
/// Addresses are not resolved, and the white space of texts is kept. The types of links are determined.
/// Linear, without recursion. Fails with a sentence for tags that cannot be parsed in linear time.
Result<Ref<Bookmark>> readNestedLinks(std::string_view html, Date now);

} // namespace tabulon
