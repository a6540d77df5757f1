// Sorting of a folder with everything below it. This changes the order in the tree, not only in a view. The
// layers above have the commands and update the rows.
#pragma once

#include "model/Bookmark.h"

namespace tabulon {

class Collation;

/// The field by which items are sorted. Texts are compared by the rules of the locale, ignoring case;
/// `NameExactly` compares the bytes of the name.
enum class SortKey { Name, URL, Tags, DateAdded, DateModified, DateLastOpened, NameExactly };

/// Returns the key for the number of a command: 0 for Name and so on. Every other number is `NameExactly`.
SortKey sortKeyForIndex(int index);

enum class SortDirection { Ascending, Descending };

/// Sorts the children of `folder` and of every folder below it. Folders are before links and separators in
/// both directions. A missing text or date is last in ascending and first in descending order; a NaN is a
/// missing date. Items with equal keys keep their order in both directions. The lists of folders that are not
/// in order are replaced. Takes O(n log n) time for n nodes.
void sortFolder(Bookmark& folder, SortKey key, SortDirection direction, const Collation& collation);

} // namespace tabulon
