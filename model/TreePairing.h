// Pairs of nodes that are the same item in two states of one tree. Only TreeComparison uses it.
#pragma once

#include "model/Bookmark.h"
#include "text/LongTexts.h"

#include <unordered_map>

namespace tabulon {

/// Both directions of every pair, the roots included. See TreeComparison for the rules. `texts` compares
/// the texts of both trees.
std::unordered_map<const Bookmark*, Bookmark*> pairsOf(const Bookmark& before, const Bookmark& after,
                                                       LongTexts& texts);

} // namespace tabulon
