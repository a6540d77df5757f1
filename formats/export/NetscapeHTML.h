// Tree → Netscape bookmark file, the HTML that browsers import. The reader of such files is
// import/NetscapeScanner.h.
#pragma once

#include "model/Bookmark.h"
#include "model/Collation.h"
#include "model/Error.h"

#include <cstdint>
#include <string>

namespace tabulon {

struct HTMLExportOptions {
    /// Sort every level by name with this collation; null keeps the tree's order. Not owned.
    const Collation* sortByName = nullptr;
};

/// Fails with a sentence for a tree that is nested so deep that its indents alone would fill more than
/// `kMostIndentBytes`: the file grows with the square of the depth.
Result<void> checkHTMLExport(const Bookmark& master);
inline constexpr std::uint64_t kMostIndentBytes = std::uint64_t{1} << 30;

/// The whole file for the children of `master`, UTF-8, every line ended by a line feed. Tags, label, browser,
/// flags, status, last-checked and last-opened dates are not written. Linear (n log n when sorting), without
/// recursion.
std::string exportToHTML(const Bookmark& master, const HTMLExportOptions& options);

} // namespace tabulon
