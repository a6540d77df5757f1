// The order in which exports write nodes when they are to be sorted.
#pragma once

#include "model/Bookmark.h"
#include "model/Collation.h"

#include <span>

namespace tabulon {

enum class SortText { Name, URL };

/// Sorts ascending by the text, ignoring case, as the collation's language does; a missing text sorts as the
/// empty one, equal ones keep their order.
void sortNodes(std::span<const Bookmark*> nodes, const Collation& collation, SortText text = SortText::Name);

} // namespace tabulon
