// The duplicate scan, which finds the links of a tree that have the URL of an earlier one. The layers above
// update rows and show alerts.
#pragma once

#include "model/Bookmark.h"

#include <string_view>
#include <vector>

namespace tabulon {

/// Returns the items below `root` that are no folders and have the URL of an earlier one, in document order.
/// URLs are compared byte by byte, ignoring the case of ASCII letters. Empty URLs are equal; a null URL
/// equals no other. Separators are compared too. Items below an item that is no folder are ignored. Linear in
/// the bytes of the URLs on average. The tree owns the results.
std::vector<Bookmark*> findDuplicates(const Bookmark& root);

/// Returns true if `a` and `b` are equal, ignoring the case of ASCII letters. Compares eight bytes at a time.
bool equalIgnoringAsciiCase(std::string_view a, std::string_view b);

/// Sets the status of all duplicates to kDuplicateStatus, and returns the result of `findDuplicates`. Items
/// that are no duplicates keep their status.
std::vector<Bookmark*> markDuplicates(const Bookmark& root);

/// Sets kDuplicateStatus back to kNoStatus for every item that is no folder, and returns these items in
/// document order. Other statuses are unchanged.
std::vector<Bookmark*> clearDuplicateStatus(const Bookmark& root);

} // namespace tabulon
