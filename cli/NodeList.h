// Some nodes of a document, one line each.
#pragma once

#include "cli/Lines.h"

#include <functional>
#include <string>
#include <vector>

namespace tabulon::cli {

/// Adds a node's line; false once the output can take no more.
using AddLine = std::function<bool(const Bookmark& node, const std::string& path)>;

/// Calls `add` for each of the nodes, which are in document order, some perhaps more than once. Fails, with
/// nothing added, when their texts and paths are more than `OutputLimit` has for the document.
Result<void> addNodes(const Bookmark& root, const std::vector<const Bookmark*>& nodes, const AddLine& add);

} // namespace tabulon::cli
