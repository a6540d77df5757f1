// Nodes → bytes of a document file: a keyed archive as a binary property list, written straight from the
// tree.
#pragma once

#include "model/Bookmark.h"

#include <string>

namespace tabulon {

/// The bytes of a document with the root folder `master`: a version record (version 1, file type "Tbln"),
/// then the tree. Linear in the size of the tree, without recursion.
std::string writeDocumentArchive(const Bookmark& master);

/// The archive of one node with its subtree, as the pasteboard carries it.
std::string writeNodeArchive(const Bookmark& node);

} // namespace tabulon
