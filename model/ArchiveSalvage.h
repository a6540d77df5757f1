// Recovery of a damaged document: reads every bookmark whose record can be read, for an untitled document.
// Undamaged files are read by ArchiveReader.h.
#pragma once

#include "base/BaseServices.h"
#include "base/Error.h"
#include "model/Bookmark.h"

#include <cstdint>
#include <string_view>

namespace tabulon {

/// The tree of a damaged document. Both counts include folders and separators, but not the root folder.
struct Salvage {
    /// The root folder "Master", expanded, without a document. Never null.
    Ref<Bookmark> master;
    /// The number of bookmarks that could be read completely.
    std::uint64_t readable = 0;
    /// An estimate of the number of bookmarks in the original file: those in the tree, some of which are
    /// incomplete, and those in the lists of folders whose records are lost. At least `readable`.
    std::uint64_t records = 0;
};

/// Returns as much as possible of a document that `readDocumentArchive` has refused: a damaged keyed archive,
/// as a binary or XML property list. Folders have the children that their lists still contain, in their
/// order. A bookmark that is in the lists of several folders is in one of these folders. Bookmarks in no list
/// are, with everything below them, in a folder at the end whose name is the text of the key
/// "RecoveredBookmarks".
///
/// Fails with a sentence if the property list itself cannot be read (its tables are cut off, its XML is
/// malformed) or no bookmark is in it. Time and memory are linear in the size of `data`. The tree does not
/// refer to `data`.
Result<Salvage> salvageDocumentArchive(std::string_view data, const BaseServices& services);

} // namespace tabulon
