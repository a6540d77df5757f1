// The duplicate scan: which links of a tree have the URL of an earlier one. It works on the tree alone; rows
// and alerts are the business of the layers above.
#pragma once

#include "model/Bookmark.h"

#include <string_view>
#include <vector>

namespace tabulon {

/// The items that are no folders and whose URL an earlier one has, in document order. URLs are the same when
/// their bytes are, the case of ASCII letters apart; two empty ones are the same, a null one is like no
/// other. Nothing else of an item counts, separators take part. Items below what is no folder are not looked
/// at. The work is linear in the bytes of the URLs.
std::vector<Bookmark*> findDuplicates(const Bookmark& root);

/// True when the texts differ in nothing but the case of ASCII letters.
bool equalIgnoringAsciiCase(std::string_view a, std::string_view b);

/// Gives every duplicate the status for it, and gives them. Earlier marks stay.
std::vector<Bookmark*> markDuplicates(const Bookmark& root);

/// Takes the status of duplicates from every item that has it and is no folder, and gives those items, in
/// document order. Other statuses stay.
std::vector<Bookmark*> clearDuplicateStatus(const Bookmark& root);

} // namespace tabulon
