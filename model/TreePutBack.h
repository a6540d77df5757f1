// Reverting of chosen differences between two states of a tree.
#pragma once

#include "model/TreeComparison.h"

#include <span>

namespace tabulon {

/// Reverts the chosen differences in the tree `after`. A removed item is inserted again as a copy, with
/// everything below it that was also removed. A moved item returns to its place. A renamed or edited item
/// gets the fields that `Bookmark::setWithBookmark` copies, auto-tab and the icon. Added items stay.
///
/// An item is inserted into its folder of before, or into the nearest ancestor of this folder that exists,
/// after the item that was before it, or first. An item is never moved into itself; it then stays where it
/// is. The copies belong to the document of `after`.
///
/// Neither updates rows nor records a change in the document.
///
/// Returns the number of inserted nodes and of chosen differences of nodes that exist. Requires: `comparison`
/// is that of `before` and `after`, and `chosen` contains differences of it. The comparison is invalid
/// afterwards.
std::size_t putBack(std::span<const TreeDifference> chosen, const TreeComparison& comparison,
                    const Bookmark& before, Bookmark& after);

} // namespace tabulon
