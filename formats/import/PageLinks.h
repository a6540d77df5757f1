// A page → what scripts in it would tell of its links: where they lead, their texts and their dates. What
// becomes of that is in PageBookmarks.h.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The values of all links ("a" and "area" elements of HTML with an "href"), in the order of the tree. Each
/// value is followed by a form feed, which may stand in a value, too.
struct PageLinks {
    /// Whole addresses; an address that is none, or is relative and has nothing to count from, as it stands.
    std::string targets;
    /// All text inside of a link, white space as it stands; "undefined" for an area.
    std::string texts;
    /// The attributes ADD_DATE and LAST_MODIFIED; "null" where there is none.
    std::string datesAdded;
    std::string datesModified;
};

/// Reads `page` (UTF-8; malformed parts count as U+FFFD) as a browser does that is given a text without an
/// address: addresses count from the page's base element, else there is nothing that they could count from.
/// Scripts count as switched on, but none is run, and nothing is fetched. `queryEncoding` is the encoding
/// that the page was written in, by ICU's name, empty for UTF-8: queries are escaped in it.
///
/// Time and memory are linear in the size of the page. Fails with a sentence for a page whose tags are too
/// entangled for that, or whose links repeat so much of each other's text, or of a long base, that it would
/// fill more than `kMostRepeatedBytes` besides sixteen times the page. A base longer than 16 KiB counts for
/// nothing.
Result<PageLinks> readPageLinks(std::string_view page, std::string_view queryEncoding = {},
                                Progress* progress = nullptr);

inline constexpr std::size_t kMostRepeatedBytes = std::size_t{1} << 28;

} // namespace tabulon
