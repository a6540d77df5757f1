// Bytes of a document file → nodes. The format is a keyed archive in a property list; docs/file-format.md
// gives it byte by byte. Writing is in ArchiveWriter.h.
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Reads a document: a keyed archive (binary or XML property list) whose root is the array of a version
/// record and the root folder. Gives the root folder with its whole subtree, parents set, no document set,
/// the root's name as stored.
///
/// Takes what other writers of the format produce: any integer and reference width, shared texts and dates,
/// keys in any order, unknown keys, longer class ancestries. A missing value is null or 0.
///
/// Fails with ErrorDomain::None for what is not a keyed archive or is damaged anywhere that is looked at
/// (references out of range, values cut off, overlapping tables, a node in two places, inside itself or in no
/// folder; docs/file-format.md has the list), and with ErrorDomain::Cocoa,
/// kUserCancelledError for another file type or version. Time and memory are linear in the size of `data`;
/// nothing is kept of it.
Result<Ref<Bookmark>> readDocumentArchive(std::string_view data);

/// Reads the archive of a single node (`writeNodeArchive`), as the pasteboard carries it. Fails as above.
Result<Ref<Bookmark>> readNodeArchive(std::string_view data);

} // namespace tabulon
