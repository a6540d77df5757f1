// Netscape bookmark file → tree. A scanner of bytes rebuilds folders, separators, notes, dates and tab groups
// from the tags as browsers write them. It is no HTML parser, and ignores tags in lower case.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Keeps its last item from one scan to the next. A description before the first item of a file becomes the
/// note of the last item of the scan before, and is dropped in the first scan.
class NetscapeScanner {
public:
    /// Returns the root folder "Master" with the items in `bytes`, without children where there are none.
    /// `bytes` should be UTF-8; malformed parts are decoded to U+FFFD. The tree keeps no reference to
    /// `bytes`. `progress` may be `nullptr`; after it has cancelled, the items found before are returned.
    ///
    /// A damaged file ends the scan early, and the items before the damage are returned. So does a file whose
    /// links repeat an address beyond `LinkTargets::kMostRepeatedBytes`. Time and memory are linear in the
    /// size of `bytes`.
    Ref<Bookmark> scan(std::string_view bytes, const BaseServices& services, Progress* progress = nullptr);

private:
    Ref<Bookmark> lastItem_;
};

/// Returns the tree in `bytes`, read with the scanner of the options. Fails with `cancelledByUser()` after
/// the progress has cancelled, and with no other error.
Result<Ref<Bookmark>> readBookmarkHTML(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
