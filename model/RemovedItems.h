// Items that a command takes out of a tree, with their places: the text that names them, and what it takes to
// put them back.
#pragma once

#include "base/Localization.h"
#include "model/Bookmark.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tabulon {

struct RemovedItem {
    Ref<Bookmark> item;
    /// Its parent before any of them was removed.
    Ref<Bookmark> folder;
    std::size_t index = 0;
};

/// The places of `items`, which are in document order and still in their tree. Once they are removed and
/// nothing else of the tree has changed, inserting them one after the other restores it, also where an item
/// was inside another one.
std::vector<RemovedItem> placesOf(const std::vector<Ref<Bookmark>>& items);

/// "2 folders, 1,500 bookmarks and 1 separator deleted", with everything in the folders counted. The items
/// have been removed.
std::string deletionText(const std::vector<RemovedItem>& removed, const Localization& texts);

} // namespace tabulon
