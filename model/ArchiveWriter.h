// Writing of a tree as a document file: a keyed archive as a binary property list. docs/file-format.md
// describes it byte by byte. Reading is in ArchiveReader.h.
#pragma once

#include "model/Bookmark.h"

#include <string>

namespace tabulon {

/// Returns the bytes of a document with the root folder `master`: a version record (version 1, file type
/// "Tbln") and the tree. The same tree always has the same bytes. Linear in the size of the tree, without
/// recursion.
std::string writeDocumentArchive(const Bookmark& master);

/// Returns the archive of one node with its subtree, in the form that the pasteboard contains. Linear in the
/// size of the subtree, without recursion.
std::string writeNodeArchive(const Bookmark& node);

} // namespace tabulon
