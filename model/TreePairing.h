// Pairing of the nodes that are the same item in two states of one tree. Only for TreeComparison, which has
// the rules.
#pragma once

#include "model/Bookmark.h"
#include "text/LongTexts.h"

#include <unordered_map>

namespace tabulon {

/// Returns both directions of every pair, those of the roots included. A node without a partner has no entry.
/// `texts` compares the texts of both trees, which must outlive it. The nodes are not owned, and the trees
/// are not changed.
std::unordered_map<const Bookmark*, Bookmark*> pairsOf(const Bookmark& before, const Bookmark& after,
                                                       LongTexts& texts);

} // namespace tabulon
