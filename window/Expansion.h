// Expanding and collapsing in the tree: the flags of folders. The rows that are shown or hidden by it are
// changed by the outline.
#pragma once

#include "model/Bookmark.h"

#include <cstddef>

namespace tabulon {

/// What is changed: the item alone, or (Plus) the item and every folder below it.
enum class ExpansionChange { Expand, ExpandPlus, Collapse, CollapsePlus };

/// Applies the change and returns the number of folders that it changed. Items that are no folders, or are in
/// the wanted state already, are skipped.
std::size_t applyExpansion(Bookmark& item, ExpansionChange change);

/// Applies the change to every folder below `top`, whether it is a Plus one or not, and returns the number of
/// folders that it changed. The time is linear in the number of nodes below `top`.
std::size_t applyExpansionBelow(Bookmark& top, ExpansionChange change);

} // namespace tabulon
