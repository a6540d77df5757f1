// Where a node stands in its document, as the tool's users write it: child indexes from the root on, joined
// by
// "/" (0/3/1). The path of the root itself is empty.
#pragma once

#include "model/Bookmark.h"

#include <functional>
#include <string>
#include <string_view>

namespace tabulon::cli {

bool isNodePath(std::string_view text);

/// The node at the path, which must be one; null when there is none.
const Bookmark* nodeAt(const Bookmark& root, std::string_view path);

/// Calls `visit` with every node below `root` and its path, in document order, as long as it gives true. What
/// stands below a node that is no folder is visited too.
void walkWithPaths(const Bookmark& root,
                   const std::function<bool(const Bookmark& node, const std::string& path)>& visit);

} // namespace tabulon::cli
