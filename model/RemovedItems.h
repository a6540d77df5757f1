// Items that a command removes from a tree: their positions, by which they can be inserted again, and the
// message about them.
#pragma once

#include "base/Localization.h"
#include "model/Bookmark.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tabulon {

/// An item and its position before the removal.
struct RemovedItem {
    Ref<Bookmark> item;
    /// Its parent before any of the items was removed.
    Ref<Bookmark> folder;
    /// Its index among the children of `folder`, before any of the items was removed.
    std::size_t index = 0;
};

/// Returns the positions of `items`. After the items are removed, inserting them in order at these positions
/// restores the tree, if it has not changed otherwise; an item may be inside another one. Requires: the items
/// are in document order and in the lists of their parents.
std::vector<RemovedItem> placesOf(const std::vector<Ref<Bookmark>>& items);

/// Returns the message about a removal, UTF-8, such as "2 folders, 1,500 bookmarks and 1 separator deleted".
/// The content of folders is counted. Requires: the items have been removed from the tree.
std::string deletionText(const std::vector<RemovedItem>& removed, const Localization& texts);

} // namespace tabulon
