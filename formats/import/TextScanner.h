// Any text → the links in it, as one flat list. It looks for a few markers and takes the word around each;
// whoever wants a page's links reads it as a page.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Scans `bytes`, which should be UTF-8 (malformed parts decode to U+FFFD), and gives the new root folder
/// "Master" with a link for each word that holds "://", "mailto:" (in any case), "@" or "/info-mac/", in the
/// order of the text, all of them called "Untitled"; no children when there was nothing. A word ends at white
/// space, quotes, parentheses, comma, semicolon, angle brackets and NUL. Linear; nothing is kept of `bytes`.
/// Fails with `cancelledByUser` when the progress cancels it, and with nothing else.
Result<Ref<Bookmark>> readText(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
