// Tree → tab-separated text, one line for each node. The scanner that finds links in any text is
// import/TextScanner.h.
#pragma once

#include "base/Error.h"
#include "base/Progress.h"
#include "model/Bookmark.h"
#include "text/Collation.h"

#include <cstddef>
#include <string>

namespace tabulon {

/// The limit on the size of a file in bytes: nodes can share a long text, so without a limit the export of a
/// small document could exhaust the memory.
inline constexpr std::size_t kMostTextBytes = std::size_t{1} << 31;

struct TextExportOptions {
    /// The columns, written in this order. A tab follows each but the note, also where the column is empty.
    bool name = false;
    bool url = false;
    bool tags = false;
    bool note = false;
    /// Writes the links and separators of all folders as one list, without lines for the folders.
    bool skipFolders = false;
    /// Writes no lines for separators.
    bool skipSeparators = false;
    /// Sorts each list by name, or by URL where names are not written; `nullptr` keeps the order of the tree.
    /// Not owned.
    const Collation* sort = nullptr;
    /// The limit of this export, in bytes.
    std::size_t mostBytes = kMostTextBytes;
    /// Receives the progress and may cancel the export; may be `nullptr`. Not owned.
    Progress* progress = nullptr;
};

/// Returns the text for the children of `master`, UTF-8, every line ended by a line feed. The line of a
/// folder is followed by those of its children, without a mark of the depth. Line breaks and tabs are
/// replaced by spaces in notes only; in the other columns they are written unchanged.
///
/// Linear (n log n when sorting), without recursion. Fails with a sentence where the text would have more
/// than `mostBytes`, or more than `OutputLimit` allows. Fails with `cancelledByUser()` after `progress` has
/// cancelled.
Result<std::string> exportToText(const Bookmark& master, const TextExportOptions& options);

} // namespace tabulon
