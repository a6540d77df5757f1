// Items that arrive from elsewhere: they go to the top of a folder, most often of a basket, and a new basket
// goes to the end of the document.
#include "model/Baskets.h"
#include "window/ViewController.h"

namespace tabulon {

Bookmark* ViewController::SearchBasket(const std::string& name) const {
    return searchBasket(outline_.getMaster(), name, platform_.base.texts);
}

Ref<Bookmark> ViewController::CreateBasket(const std::string& name) const {
    return createBasket(name, outline_.getMaster(), now());
}

void ViewController::DropBasketAtEnd(Ref<Bookmark> item) {
    outline_.view().selectRows({});
    const ChildList* children = outline_.getMaster().getChildren();
    outline_.insertChild(outline_.getMaster(), children ? children->size() : 0, std::move(item));
    outline_.makeDirty();
}

Bookmark& ViewController::basketOfKey(std::string_view key) {
    const std::string name = platform_.base.texts.text(key);
    if (Bookmark* found = SearchBasket(name))
        return *found;
    const Ref<Bookmark> made = CreateBasket(name);
    DropBasketAtEnd(made);
    return *made;
}

Bookmark& ViewController::DropBasketExists() {
    return basketOfKey(kDropBasket);
}

Bookmark& ViewController::WasteBasketExists() {
    return basketOfKey(kWasteBasket);
}

void ViewController::AddToBasket(Ref<Bookmark> item) {
    DropBookmarkIn(std::move(item), DropBasketExists());
}

void ViewController::AddToWaste(Ref<Bookmark> item) {
    addFirst(std::move(item), WasteBasketExists());
}

void ViewController::DropBookmarkIn(Ref<Bookmark> item, Bookmark& folder) {
    const Bookmark& dropped = *item;
    addFirst(std::move(item), folder);
    if (!isExpanded(folder) && &folder != &outline_.getMaster())
        return;
    if (const auto row = outline_.rowForItem(dropped))
        outline_.view().selectRows({{*row, 1}});
}

void ViewController::DropBookmarkAtRoot(Ref<Bookmark> item) {
    DropBookmarkIn(std::move(item), outline_.getMaster());
}

void ViewController::addFirst(Ref<Bookmark> item, Bookmark& folder) {
    outline_.view().selectRows({});
    outline_.insertChild(folder, 0, std::move(item));
    outline_.makeDirty();
}

} // namespace tabulon
