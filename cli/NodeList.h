// Lists of nodes of a document, with their paths.
#pragma once

#include "cli/Lines.h"

#include <functional>
#include <string>
#include <vector>

namespace tabulon::cli {

/// Adds the line of a node. Returns false if no further lines are to be added.
using AddLine = std::function<bool(const Bookmark& node, const std::string& path)>;

/// Calls `add` for each of `nodes` until it returns false. Requires: `nodes` are below `root` and in document
/// order; a node may be repeated. Fails with a sentence, before any call, where their texts and paths exceed
/// the `OutputLimit` of the document. Linear in the size of the document and the paths. It is no failure if
/// `add` returns false.
Result<void> addNodes(const Bookmark& root, const std::vector<const Bookmark*>& nodes, const AddLine& add);

} // namespace tabulon::cli
