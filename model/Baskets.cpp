#include "model/Baskets.h"

#include "text/Collation.h"

#include <compare>

namespace tabulon {

Bookmark* searchBasket(const Bookmark& root, std::string_view name, const Localization& texts) {
    if (!root.hasChildren())
        return nullptr;
    const Collation collation(texts.locale());
    for (Bookmark* child : *root.getChildren())
        if (const Text& itsName = child->itemName();
            !itsName.isNull() && std::is_eq(collation.compareIgnoringCase(itsName.view(), name)))
            return child;
    return nullptr;
}

Ref<Bookmark> createBasket(const std::string& name, const Bookmark& root, Date now) {
    Ref<Bookmark> basket = Bookmark::init(now);
    basket->setItemName(name);
    basket->makeParent();
    basket->setDocument(root.getDocument());
    basket->setLabel(kBasketLabel);
    return basket;
}

} // namespace tabulon
