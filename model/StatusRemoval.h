// The removal of links by their status: links that a check or the duplicate scan has marked are deleted or
// moved to the Waste Basket. The layers above ask the user, update rows and count changes.
#pragma once

#include "base/Localization.h"
#include "base/UserDefaults.h"
#include "model/Bookmark.h"
#include "model/RemovedItems.h"

#include <string>
#include <vector>

namespace tabulon {

/// The statuses of the links that are removed, and whether these are moved to the Waste Basket and not
/// deleted.
struct RemovalOptions {
    bool duplicates = false;
    bool broken = false;
    bool unknown = false;
    bool move = false;
};

/// Returns the options by the settings "DuplicateLinks", "BrokenLinks", "UnknownLinks" and "MoveLinks".
RemovalOptions removalOptions(const UserDefaults& defaults);

/// The result of a removal. It owns a count of each removed link.
struct Removal {
    /// The links that were deleted or moved, in document order.
    std::vector<Ref<Bookmark>> items;
    /// Their positions before the removal.
    std::vector<RemovedItem> places;
    /// True if the removal has made the Waste Basket.
    bool madeBasket = false;
};

/// Deletes the links below `root` with a status of the options, or moves each to index 0 of the Waste Basket,
/// which reverses their order. A deleted link has no parent afterwards. If there is a link to move and no
/// basket, makes one with the added-date `now` at the end of the top level. Folders are never removed. When
/// links are moved, those directly in the basket are not part of the result.
Removal removeByStatus(Bookmark& root, const RemovalOptions& options, const Localization& texts, Date now);

/// Returns the message about a removal of `count` links, UTF-8.
std::string removalSummary(const RemovalOptions& options, std::size_t count, const Localization& texts);

/// Returns the Waste Basket if it is a child of `root` other than the last one, else nullptr. The basket
/// should be last when duplicates are marked: of two equal links the one in the basket is then the duplicate.
Bookmark* misplacedWasteBasket(const Bookmark& root, const Localization& texts);
/// Moves the Waste Basket to the end of the top level. Does nothing if there is none, or it is there.
void moveWasteBasketDown(Bookmark& root, const Localization& texts);

/// Sets the status of every item below `root` that is no folder to kNoStatus.
void clearMarks(const Bookmark& root);

} // namespace tabulon
