// Reading of a document file into a tree. The format is a keyed archive in a property list;
// docs/file-format.md describes it byte by byte. Writing is in ArchiveWriter.h.
#pragma once

#include "base/Error.h"
#include "model/Bookmark.h"

#include <string_view>

namespace tabulon {

/// Returns the root folder of the document in `data`, with its whole subtree. Parents are set, the document
/// is not. The root's name is that in the file. `data` is a keyed archive, as a binary or XML property list,
/// whose root is the array of a version record and the root folder.
///
/// Accepts what other writers of the format produce: any integer and reference width, shared texts and dates,
/// keys in any order, unknown keys, longer class ancestries. A missing value is null or 0.
///
/// Fails with ErrorDomain::None if `data` is no keyed archive or is damaged in a part that is read:
/// references out of range, values cut off, overlapping tables, a node in two places, inside itself or in no
/// folder (docs/file-format.md has the complete list). Fails with ErrorDomain::Cocoa, kUserCancelledError,
/// for another file type or version. Time and memory are linear in the size of `data`. The tree does not
/// refer to `data`.
Result<Ref<Bookmark>> readDocumentArchive(std::string_view data);

/// Returns the node in `data`, with its whole subtree. `data` is the archive of a single node as
/// `writeNodeArchive` returns it and the pasteboard contains it. Fails with ErrorDomain::None under the same
/// conditions.
Result<Ref<Bookmark>> readNodeArchive(std::string_view data);

} // namespace tabulon
