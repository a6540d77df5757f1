// The paths of nodes in a document, as the tool's users write them: child indexes from the root on, joined by
// "/" (0/3/1). The path of the root is empty.
#pragma once

#include "model/Bookmark.h"

#include <functional>
#include <string>
#include <string_view>

namespace tabulon::cli {

/// Returns whether `text` has the form of a path. A path consists of decimal indexes with one "/" between two
/// of them, and may be empty. Whether a document has a node there is not checked.
bool isNodePath(std::string_view text);

/// Returns the node at the path, or `nullptr`. Requires: `isNodePath(path)`. Also returns `nullptr` for an
/// index that does not fit into 64 bits. The tree keeps the ownership of the node.
Bookmark* nodeAt(Bookmark& root, std::string_view path);

/// Calls `visit` with every node below `root` and its path, in document order, until it returns false.
/// Children of nodes that are no folders are visited, too. The path is valid during the call. Without
/// recursion.
void walkWithPaths(const Bookmark& root,
                   const std::function<bool(const Bookmark& node, const std::string& path)>& visit);

} // namespace tabulon::cli
