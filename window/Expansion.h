// Expanding and collapsing in the tree: the flags of folders. The rows that this shows or hides are the
// outline's.
#pragma once

#include "model/Bookmark.h"

#include <cstddef>

namespace tabulon {

/// What expanding and collapsing changes: the item alone, or (Plus) the item and every folder below it.
enum class ExpansionChange { Expand, ExpandPlus, Collapse, CollapsePlus };

/// Returns the number of folders that changed. Items that are no folders, or are in the wanted state already,
/// are skipped.
std::size_t applyExpansion(Bookmark& item, ExpansionChange change);

/// Changes every folder below `top`, whether Plus or not, and returns the number of those that changed.
std::size_t applyExpansionBelow(Bookmark& top, ExpansionChange change);

} // namespace tabulon
