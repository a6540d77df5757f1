// Tree → Netscape bookmark file, the HTML that browsers import. The reader of such files is
// import/NetscapeScanner.h.
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
inline constexpr std::size_t kMostHTMLBytes = std::size_t{1} << 31;

struct HTMLExportOptions {
    /// Sort every level by name with this collation; null keeps the tree's order. Not owned.
    const Collation* sortByName = nullptr;
    std::size_t mostBytes = kMostHTMLBytes;
    /// Told how far the export is; null when nobody watches. Not owned.
    Progress* progress = nullptr;
};

/// The whole file for the children of `master`, UTF-8, every line ended by a line feed. Tags, label, browser,
/// flags, status, last-checked and last-opened dates are not written. Linear (n log n when sorting), without
/// recursion. Fails with a sentence when the file would be larger than `mostBytes`; before any work when its
/// indents alone are.
Result<std::string> exportToHTML(const Bookmark& master, const HTMLExportOptions& options);

} // namespace tabulon
