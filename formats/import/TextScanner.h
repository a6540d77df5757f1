// Any text → the links in it, as a flat list. The scanner searches for a few markers and does not parse HTML;
// the links of a page are read by PageLinks.h.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns the root folder "Master" with a link for each marker in `bytes`, in the order of the text, or
/// without children where there is none. All links are called "Untitled", and their types are determined.
///
/// A link ends at the next delimiter: white space, quotes, parentheses, comma, semicolon, angle brackets or
/// NUL. It begins
/// - for "://" at the scheme before it, whose length is guessed from its letters; the marker is skipped
///   where a delimiter is within that length,
/// - for "mailto:" (in any letter case) and "/info-mac/" at the marker,
/// - for "@" after the delimiter before it, or 511 bytes before it, but not before the end of the last link.
///
/// `bytes` should be UTF-8; malformed parts are decoded to U+FFFD, and XML's references are replaced. The
/// tree keeps no reference to `bytes`. Linear. Fails with `cancelledByUser()` after the progress has
/// cancelled, and with no other error.
Result<Ref<Bookmark>> readText(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
