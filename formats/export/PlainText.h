// Tree → tab-separated text, one line a node. The scanner that finds links in any text is
// import/TextScanner.h.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"
#include "model/Bookmark.h"
#include "text/Collation.h"

#include <cstddef>
#include <string>

namespace tabulon {

/// No file is larger: nodes can share a long text, and so a small document could fill any memory.
inline constexpr std::size_t kMostTextBytes = std::size_t{1} << 31;

struct TextExportOptions {
    /// The columns that are written, in this order. All but the note end with a tab, also when they are
    /// empty.
    bool name = false;
    bool url = false;
    bool tags = false;
    bool note = false;
    /// Only the links and separators, as one list.
    bool skipFolders = false;
    bool skipSeparators = false;
    /// Sort each list by name, or by URL where names are not written; null keeps the tree's order. Not owned.
    const Collation* sort = nullptr;
    std::size_t mostBytes = kMostTextBytes;
    /// Told how far the export is; null when nobody watches. Not owned.
    Progress* progress = nullptr;
};

/// The text for the children of `master`, UTF-8, every line ended by a line feed: a folder's line, then those
/// of its children; nothing tells the depth. Linear (n log n when sorting), without recursion. Fails with a
/// sentence when the text would be larger than `mostBytes`.
Result<std::string> exportToText(const Bookmark& master, const TextExportOptions& options);

} // namespace tabulon
