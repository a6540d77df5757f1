#include "window/BasketCommands.h"

#include "model/Baskets.h"
#include "window/Outline.h"

namespace tabulon {

Bookmark* BasketCommands::SearchBasket(const std::string& name) const {
    return searchBasket(outline_.getMaster(), name, services_.texts);
}

Ref<Bookmark> BasketCommands::CreateBasket(const std::string& name) const {
    return createBasket(name, outline_.getMaster(), Date::now(services_.clock));
}

void BasketCommands::DropBasketAtEnd(Ref<Bookmark> item) {
    outline_.view().selectRows({});
    const ChildList* children = outline_.getMaster().getChildren();
    outline_.insertChild(outline_.getMaster(), children ? children->size() : 0, std::move(item));
    outline_.makeDirty();
}

Bookmark& BasketCommands::basketOfKey(std::string_view key) {
    const std::string name = services_.texts.text(key);
    if (Bookmark* found = SearchBasket(name))
        return *found;
    const Ref<Bookmark> made = CreateBasket(name);
    DropBasketAtEnd(made);
    return *made;
}

Bookmark& BasketCommands::DropBasketExists() {
    return basketOfKey(kDropBasket);
}

Bookmark& BasketCommands::WasteBasketExists() {
    return basketOfKey(kWasteBasket);
}

void BasketCommands::AddToBasket(Ref<Bookmark> item) {
    DropBookmarkIn(std::move(item), DropBasketExists());
}

void BasketCommands::AddToWaste(Ref<Bookmark> item) {
    addFirst(std::move(item), WasteBasketExists());
}

void BasketCommands::DropBookmarkIn(Ref<Bookmark> item, Bookmark& folder) {
    const Bookmark& dropped = *item;
    addFirst(std::move(item), folder);
    if (!isExpanded(folder) && &folder != &outline_.getMaster())
        return;
    if (const auto row = outline_.rowForItem(dropped))
        outline_.view().selectRows({{*row, 1}});
}

void BasketCommands::DropBookmarkAtRoot(Ref<Bookmark> item) {
    DropBookmarkIn(std::move(item), outline_.getMaster());
}

void BasketCommands::addFirst(Ref<Bookmark> item, Bookmark& folder) {
    outline_.view().selectRows({});
    outline_.insertChild(folder, 0, std::move(item));
    outline_.makeDirty();
}

} // namespace tabulon
