// Pairs of nodes that are the same item in two states of one tree. Only TreeComparison uses it.
#pragma once

#include "model/Bookmark.h"

#include <unordered_map>

namespace tabulon {

/// Both directions of every pair, the roots included. See TreeComparison for the rules.
std::unordered_map<const Bookmark*, Bookmark*> pairsOf(const Bookmark& before, const Bookmark& after);

} // namespace tabulon
