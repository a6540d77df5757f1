// The property lists in which browsers store bookmarks: Safari's "Bookmarks.plist" and iCab's "iCab 4
// Bookmarks" → tree.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns the root folder "Master" with the entries of the list, without children where it has none. Binary
/// and XML property lists are read. A value of an unexpected kind counts as absent where the entry has a name
/// or an address without it. Links and folders of Safari have no dates, and their dates are null.
///
/// Fails with a sentence for bytes that are no property list, and for a list
/// - that is damaged in an entry that is read,
/// - whose folders contain each other, or contain a value that is no entry,
/// - whose folders have a value for children that is no list,
/// - that has entries in no folder.
/// Fails with `cancelledByUser()` after the progress has cancelled. Linear, without recursion.
Result<Ref<Bookmark>> readSafariBookmarks(std::string_view bytes, const ReadOptions& options);
Result<Ref<Bookmark>> readICabBookmarks(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
