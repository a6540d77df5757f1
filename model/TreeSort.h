// Sorting a folder with everything below it: a rearrangement of the order that the tree keeps, not a way to
// look at it. Which command sorts what, and the rows, are the business of the layers above.
#pragma once

#include "model/Bookmark.h"

namespace tabulon {

class Collation;

/// What is sorted by. Texts are compared as the language does, ignoring case; `NameExactly` by their bytes.
enum class SortKey { Name, URL, Tags, DateAdded, DateModified, DateLastOpened, NameExactly };

/// The key of a command's number, 0 for Name and so on; any other number is `NameExactly`.
SortKey sortKeyForIndex(int index);

enum class SortDirection { Ascending, Descending };

/// Sorts the children of the folder and of every folder below it. Folders come first, then links and
/// separators, both by the key. A missing text or date comes after those that are there, in descending order
/// before them; equal keys keep their order in either. A date that is no number counts as missing.
void sortFolder(Bookmark& folder, SortKey key, SortDirection direction, const Collation& collation);

} // namespace tabulon
