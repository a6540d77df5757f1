// Taking back chosen differences between two states of a tree.
#pragma once

#include "model/TreeComparison.h"

#include <span>

namespace tabulon {

/// Makes the tree after as the tree before was, for the chosen differences only: what was removed is inserted
/// again as a copy, with everything below it that was removed too; what was renamed, edited or moved is as it
/// was. What was added stays. An item goes into the folder that it was in, or the nearest folder above that
/// one which still exists, after the item that was before it, or first. An item is never moved into itself.
/// The copies belong to the document of `after`. Returns how many nodes were inserted or changed.
///
/// `comparison` is one of `before` and `after`, and its differences are what `chosen` lists; afterwards it
/// describes the tree no more.
std::size_t putBack(std::span<const TreeDifference> chosen, const TreeComparison& comparison,
                    const Bookmark& before, Bookmark& after);

} // namespace tabulon
