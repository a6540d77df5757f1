// Bookmarks that the browsers of Chromium's family, and Opera, keep in JSON files named "Bookmarks".
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// The new root folder "Master" with the browser's root folders in it. Chromium's are two, the bar
/// ("Favourites", label 1) and "Other Bookmarks"; Opera's are five: bar, user root, trash, other, synced.
/// They are made whether the file has them or not. The synced root of Opera is filled only when there is an
/// "other" root; Chromium's is passed over.
///
/// Keys may come in any order, of equal ones the last counts. A value of an unexpected kind counts as absent;
/// so does a timestamp that is no string. Dates that are absent are null.
///
/// Fails with a sentence for what is no JSON anywhere, is no UTF-8, or is nested more than a million levels
/// deep. A sound file without "roots" fails with kUserCancelledError of the Cocoa domain: nothing is
/// imported, and no alert is shown for it. Linear, without recursion. What Opera's file holds goes to the
/// log, as one line.
Result<Ref<Bookmark>> readChromiumBookmarks(std::string_view bytes, const ReadOptions& options);
Result<Ref<Bookmark>> readOperaBookmarks(std::string_view bytes, const ReadOptions& options);

/// The moment of a timestamp as these files have it: microseconds since 1601-01-01 00:00 UTC in decimal, the
/// fraction of the second dropped. Null for an empty text and "0". The number is read from the beginning
/// (white space and a sign may come first), stops at what is no digit and stays within 64 bits. The
/// arithmetic is that of unsigned 64-bit integers: moments before 1970 come out far in the future.
Date dateOfChromium(std::string_view timestamp);

} // namespace tabulon
