// What is left of a document that the reader refuses: every bookmark whose record can be read, for an
// untitled document. Sound files go through ArchiveReader.h.
#pragma once

#include "base/BaseServices.h"
#include "base/Error.h"
#include "model/Bookmark.h"

#include <cstdint>
#include <string_view>

namespace tabulon {

/// The tree that was read in part. Both counts leave the root folder out; folders and separators count as
/// bookmarks.
struct Salvage {
    /// The root folder "Master", expanded, no document set. Never null.
    Ref<Bookmark> master;
    /// Bookmarks of which everything could be read.
    std::uint64_t readable = 0;
    /// Bookmarks that the file names, as far as that can be told: those in the tree, of which some lack what
    /// could not be read, and those that a folder lists and that are lost. Not below `readable`.
    std::uint64_t records = 0;
};

/// Reads what can be read of a document that `readDocumentArchive` has refused: a keyed archive as a binary
/// or XML property list with damage in it. Folders have the children that their lists still name, in their
/// order; a bookmark that two lists name is in the first one. Those that no folder reaches come, with what is
/// below them, into a folder "RecoveredBookmarks" (by key) at the end.
///
/// Fails with a sentence when the container itself cannot be read (its tables are cut off, its XML is
/// malformed) or no bookmark is in it. Time and memory are linear in the size of `data`; nothing is kept of
/// it.
Result<Salvage> salvageDocumentArchive(std::string_view data, const BaseServices& services);

} // namespace tabulon
