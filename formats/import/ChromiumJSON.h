// The JSON files named "Bookmarks" in which the browsers of Chromium's family, and Opera, store bookmarks →
// tree.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns the root folder "Master" with the browser's root folders in it. Chromium has two: the bar
/// ("Favourites", label 1) and "Other Bookmarks". Opera has five: bar, user root, trash, other, synced. They
/// are made whether the file contains them or not. Opera's "synced" root is empty unless the file has an
/// "other" root; that of Chromium is ignored.
///
/// Keys may be in any order; of equal keys the last one counts. A value of an unexpected kind counts as
/// absent, and so does a timestamp that is no string. The types of links are determined. Absent dates are
/// null.
///
/// Fails with a sentence for bytes that are not valid JSON from beginning to end, are no UTF-8, or are nested
/// more than a million levels deep. Fails with `cancelledByUser()` after the progress has cancelled. A valid
/// file without "roots" fails with kUserCancelledError of the Cocoa domain: nothing is imported, and no alert
/// is shown. Linear, without recursion. `readOperaBookmarks` logs one line with the beginning of the file's
/// JSON, or that there is none.
Result<Ref<Bookmark>> readChromiumBookmarks(std::string_view bytes, const ReadOptions& options);
Result<Ref<Bookmark>> readOperaBookmarks(std::string_view bytes, const ReadOptions& options);

/// Returns the date of a timestamp: microseconds since 1601-01-01 00:00 UTC in decimal digits. The fraction
/// of the second is dropped. Returns the null date for an empty text and for "0".
///
/// White space and a sign may precede the digits. Parsing ends at the first byte that is no digit; a number
/// that does not fit into 64 bits is limited to the nearest one that does. The arithmetic is that of unsigned
/// 64-bit integers, so a moment before 1970 becomes a date in the far future.
Date dateOfChromium(std::string_view timestamp);

} // namespace tabulon
