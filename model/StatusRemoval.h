// Removing links by their status: the links that a check or the duplicate scan has marked are deleted or
// moved into the Waste Basket. It works on the tree alone; questions, rows and change counts are the business
// of the layers above.
#pragma once

#include "base/Localization.h"
#include "base/UserDefaults.h"
#include "model/Bookmark.h"
#include "model/RemovedItems.h"

#include <string>
#include <vector>

namespace tabulon {

/// Which links go, and whether they go into the Waste Basket instead of altogether.
struct RemovalOptions {
    bool duplicates = false;
    bool broken = false;
    bool unknown = false;
    bool move = false;
};

/// From the settings "DuplicateLinks", "BrokenLinks", "UnknownLinks" and "MoveLinks".
RemovalOptions removalOptions(const UserDefaults& defaults);

/// What one pass has done. It keeps the links alive that were deleted.
struct Removal {
    /// The links that were deleted or moved, in document order.
    std::vector<Ref<Bookmark>> items;
    /// Their places before.
    std::vector<RemovedItem> places;
    /// The pass had to make the Waste Basket.
    bool madeBasket = false;
};

/// Deletes the links below `root` whose status the options name, which have no parent then, or moves each to
/// the top of the Waste Basket, so that later ones come above earlier ones. A missing basket is made at the
/// end of the top level, at `now`. Folders are not removed; links directly in the basket stay and do not
/// count when links are moved.
Removal removeByStatus(Bookmark& root, const RemovalOptions& options, const Localization& texts, Date now);

/// What is told after a pass that has removed so many links.
std::string removalSummary(const RemovalOptions& options, std::size_t count, const Localization& texts);

/// The Waste Basket where it stands at the top level, but not as the last item; else null. It is moved to the
/// end before links are marked, so that of two equal links the one in it is the duplicate.
Bookmark* misplacedWasteBasket(const Bookmark& root, const Localization& texts);
/// Moves it there, if there is one.
void moveWasteBasketDown(Bookmark& root, const Localization& texts);

/// Takes the status from every item that is no folder.
void clearMarks(const Bookmark& root);

} // namespace tabulon
