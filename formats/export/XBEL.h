// Tree → XBEL 1.0, the XML Bookmark Exchange Language. The reader of such files is import/XBELReader.h.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"
#include "model/Bookmark.h"
#include "text/Collation.h"

#include <cstddef>
#include <string>

namespace tabulon {

/// No file is larger. The indents grow with the square of the depth, and nodes can share a long text: without
/// a limit, a small document could fill any memory.
inline constexpr std::size_t kMostXBELBytes = std::size_t{1} << 31;

/// What a tags metadata element names as its owner.
inline constexpr const char* kXBELTagsOwner = "https://tabulon.example/xbel/tags";

struct XBELExportOptions {
    /// Sort every level by name with this collation; null keeps the tree's order. Not owned.
    const Collation* sortByName = nullptr;
    std::size_t mostBytes = kMostXBELBytes;
    /// Told how far the export is; null when nobody watches. Not owned.
    Progress* progress = nullptr;
};

/// The whole file for the children of `master`, UTF-8, every line ended by a line feed. Of folders the name,
/// the note and whether they are expanded are written, of links name, URL, note (escaped twice, as readers of
/// this file expect) and tags. Linear (n log n when sorting), without recursion. Fails with a sentence when
/// the file would be larger than `mostBytes`.
Result<std::string> exportToXBEL(const Bookmark& master, const XBELExportOptions& options);

} // namespace tabulon
