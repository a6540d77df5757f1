// A page → the values that scripts in it would read from its links: addresses, texts and dates.
// PageBookmarks.h makes bookmarks of them.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The values of all links (elements "a" and "area" of HTML with an "href"), in the order of the tree. Each
/// value is followed by a form feed. A value may contain form feeds, too.
struct PageLinks {
    /// Absolute addresses. An address that cannot be parsed, or that is relative without a base, is
    /// unchanged.
    std::string targets;
    /// All text inside of a link with its white space; "undefined" for an area.
    std::string texts;
    /// The attributes ADD_DATE and LAST_MODIFIED; "null" where there is none.
    std::string datesAdded;
    std::string datesModified;
};

/// Returns the links of `page`, parsed as a browser parses a text without an address. `page` is UTF-8;
/// malformed parts count as U+FFFD. Scripting counts as enabled, but no script is run, and nothing is
/// fetched.
///
/// Addresses are relative to the page's base element. A base with more than 16 KiB, or with the scheme "data"
/// or "javascript", is ignored. `queryEncoding` is ICU's name of the encoding that the page was in, empty for
/// UTF-8: queries are percent-encoded in it. `progress` may be `nullptr`.
///
/// Time and memory are linear in the size of the page. Fails with a sentence for tags that cannot be parsed
/// in linear time, and where the texts or the addresses of the links have more than `kMostRepeatedBytes` plus
/// sixteen times the size of the page: links can be nested, and repeat a long base. Fails with
/// `cancelledByUser()` after `progress` has cancelled.
Result<PageLinks> readPageLinks(std::string_view page, std::string_view queryEncoding = {},
                                Progress* progress = nullptr);

/// The part of the limit on results that does not depend on the size of the page, in bytes.
inline constexpr std::size_t kMostRepeatedBytes = std::size_t{1} << 28;

} // namespace tabulon
