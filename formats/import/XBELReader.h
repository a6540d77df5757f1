// XBEL, the XML Bookmark Exchange Language → tree. The writer of such files is export/XBEL.h.
#pragma once

#include "base/Error.h"
#include "formats/ReadOptions.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns the root folder "Master" with the bookmarks, folders and separators of an XBEL file. They are read
/// from the second top-level node on (the first is normally the XML declaration). At an "xbel" element its
/// children are read in place of the nodes after it. A "title" in it replaces the name "Master".
///
/// A link has its address, title, note, tags and dates; folders have their title only. Tags are read from
/// metadata whose owner ends with "/tags" or is "tags". A date that cannot be parsed is null. Other elements
/// of XBEL are ignored. The types of links are determined.
///
/// The encoding is that of the byte-order mark or the XML declaration; malformed UTF-8 is decoded to U+FFFD.
/// Fails with a sentence for bytes that are empty, are no XML, or have no second top-level node. Fails with
/// `cancelledByUser()` after the progress has cancelled. Linear, without recursion.
Result<Ref<Bookmark>> readXBEL(std::string_view bytes, const ReadOptions& options);

} // namespace tabulon
