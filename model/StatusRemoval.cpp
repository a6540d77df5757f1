#include "model/StatusRemoval.h"

#include "base/Settings.h"
#include "model/Baskets.h"
#include "model/TreeWalk.h"

namespace tabulon {
namespace {

bool isNamed(std::uint8_t status, const RemovalOptions& options) {
    return (status == kDuplicateStatus && options.duplicates) ||
           (status == kBrokenStatus && options.broken) || (status == kUnknownStatus && options.unknown);
}

// Returns the links that are removed, in document order. `basket` may be nullptr.
std::vector<Ref<Bookmark>> candidates(const Bookmark& root, const RemovalOptions& options,
                                      const Bookmark* basket) {
    std::vector<Ref<Bookmark>> items;
    walkBelow(root, [&](Bookmark& item) {
        if (item.isFolder())
            return true;
        const bool stays = options.move && basket && item.getParent() == basket;
        if (isNamed(item.getStatus(), options) && !stays)
            items.emplace_back(&item);
        return false;
    });
    return items;
}

} // namespace

RemovalOptions removalOptions(const UserDefaults& defaults) {
    return {.duplicates = valueOf(defaults, settings::kDuplicateLinks),
            .broken = valueOf(defaults, settings::kBrokenLinks),
            .unknown = valueOf(defaults, settings::kUnknownLinks),
            .move = valueOf(defaults, settings::kMoveLinks)};
}

Removal removeByStatus(Bookmark& root, const RemovalOptions& options, const Localization& texts, Date now) {
    const std::string basketName = texts.text(kWasteBasket);
    Bookmark* basket = options.move ? searchBasket(root, basketName, texts) : nullptr;
    Removal removal;
    removal.items = candidates(root, options, basket);
    removal.places = placesOf(removal.items);
    for (const Ref<Bookmark>& item : removal.items) {
        item->detachMe();
        if (!options.move) {
            item->setParent(nullptr); // its folder may be destroyed before it
            continue;
        }
        if (item.get() == basket) // a link with the basket's name, which cannot be moved into itself
            basket = searchBasket(root, basketName, texts);
        if (!basket) {
            const Ref<Bookmark> made = createBasket(basketName, root, now);
            root.addChild(made);
            basket = made.get();
            removal.madeBasket = true;
        }
        basket->addBegin(item);
    }
    return removal;
}

std::string removalSummary(const RemovalOptions& options, std::size_t count, const Localization& texts) {
    const std::string key = options.move ? "DuplicatesMoved" : "DuplicatesDeleted";
    return texts.format(count == 1 ? key + ":one" : key, texts.format("%d bookmarks", count));
}

Bookmark* misplacedWasteBasket(const Bookmark& root, const Localization& texts) {
    Bookmark* basket = searchBasket(root, texts.text(kWasteBasket), texts);
    return basket != root.getLast() ? basket : nullptr;
}

void moveWasteBasketDown(Bookmark& root, const Localization& texts) {
    const Ref<Bookmark> basket(misplacedWasteBasket(root, texts));
    if (!basket)
        return;
    basket->detachMe();
    root.addChild(basket);
}

void clearMarks(const Bookmark& root) {
    walkBelow(root, [](Bookmark& item) {
        if (!item.isFolder())
            item.setStatus(kNoStatus);
        return item.isFolder();
    });
}

} // namespace tabulon
