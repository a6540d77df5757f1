// The order in which exports write nodes when they are to be sorted.
#pragma once

#include "formats/export/ExportSteps.h"
#include "model/Bookmark.h"
#include "text/Collation.h"

#include <span>

namespace tabulon {

enum class SortText { Name, URL };

/// Sorts ascending by the text, ignoring case, as the collation's language does; a missing text sorts as the
/// empty one, equal ones keep their order. Once the user has cancelled nothing moves.
void sortNodes(std::span<const Bookmark*> nodes, const Collation& collation, ExportSteps& steps,
               SortText text = SortText::Name);

} // namespace tabulon
