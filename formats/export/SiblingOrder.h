// Sorting of the nodes of a list for the exports.
#pragma once

#include "formats/export/ExportSteps.h"
#include "model/Bookmark.h"
#include "text/Collation.h"

#include <span>

namespace tabulon {

/// The text of a node that it is sorted by.
enum class SortText { Name, URL };

/// Sorts `nodes` stably and in ascending order by the text, ignoring letter case, by the rules of the
/// collation's language. A null text sorts as the empty one. Counts its steps in `steps`. Leaves `nodes`
/// unchanged if the user cancels. Takes O(n log n) comparisons of keys, and memory for the keys of all nodes.
void sortNodes(std::span<const Bookmark*> nodes, const Collation& collation, ExportSteps& steps,
               SortText text = SortText::Name);

} // namespace tabulon
