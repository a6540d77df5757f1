// Netscape bookmark file → tree: a scanner of bytes that rebuilds folders, separators, notes, dates and tab
// groups from the tags as browsers write them. It is no HTML parser; tags in lower case are not seen.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Keeps its last appended item from one scan to the next: a description that comes before any item goes to
/// the last item of the scan before (and is dropped in the first one).
class NetscapeScanner {
public:
    /// Scans `bytes`, which should be UTF-8 (malformed parts decode to U+FFFD), and gives the new root folder
    /// "Master" with what was found; no children when there was nothing. Damaged input ends the scan early
    /// and keeps what there was; so do links that repeat a far address (the next one for each of them) beyond
    /// `LinkTargets::kMostRepeatedBytes`. Time and memory are linear in the size of `bytes`; nothing is kept
    /// of it.
    Ref<Bookmark> scan(std::string_view bytes, const BaseServices& services, Progress* progress = nullptr);

private:
    Ref<Bookmark> lastItem_;
};

/// Scans `bytes` with the scanner of the options. Fails with `cancelledByUser` when the progress cancels it,
/// and with nothing else.
Result<Ref<Bookmark>> readBookmarkHTML(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
