// Tree → XBEL 1.0, the XML Bookmark Exchange Language. The reader of such files is import/XBELReader.h.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"
#include "model/Bookmark.h"
#include "text/Collation.h"

#include <cstddef>
#include <string>

namespace tabulon {

/// The limit on the size of a file in bytes. Indents grow with the square of the depth, and nodes can share a
/// long text: without a limit, the export of a small document could exhaust the memory.
inline constexpr std::size_t kMostXBELBytes = std::size_t{1} << 31;

/// The owner that the metadata element with a link's tags names.
inline constexpr const char* kXBELTagsOwner = "https://tabulon.example/xbel/tags";

struct XBELExportOptions {
    /// Sorts every list by name with this collation; `nullptr` keeps the order of the tree. Not owned.
    const Collation* sortByName = nullptr;
    /// The limit of this export, in bytes.
    std::size_t mostBytes = kMostXBELBytes;
    /// Receives the progress and may cancel the export; may be `nullptr`. Not owned.
    Progress* progress = nullptr;
};

/// Returns the bytes of a file with the children of `master`, UTF-8, every line ended by a line feed.
///
/// Folders are written with name, note and whether they are expanded, links with name, URL, note (escaped
/// twice, as readers of these files expect) and tags. Empty and null texts are left out. Dates are not
/// written.
///
/// Linear (n log n when sorting), without recursion. Fails with a sentence where the file would have more
/// than `mostBytes` (before any other work where its indents alone have more), or more than `OutputLimit`
/// allows. Fails with `cancelledByUser()` after `progress` has cancelled.
Result<std::string> exportToXBEL(const Bookmark& master, const XBELExportOptions& options);

} // namespace tabulon
