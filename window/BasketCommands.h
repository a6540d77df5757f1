// Items that arrive from elsewhere: they go to the top of a folder, most often of a basket, and a new basket
// goes to the end of the document. Baskets are top-level items known by their names alone (model/Baskets.h).
#pragma once

#include "base/BaseServices.h"
#include "model/Bookmark.h"

#include <string>
#include <string_view>

namespace tabulon {

class Outline;

/// Requires of every item that arrives: it is in no tree.
class BasketCommands {
public:
    /// What is handed in must live longer.
    BasketCommands(Outline& outline, const BaseServices& services) : outline_(outline), services_(services) {}

    /// Returns the basket of that name, or null.
    Bookmark* SearchBasket(const std::string& name) const;
    /// Returns a new basket, not yet in the tree.
    Ref<Bookmark> CreateBasket(const std::string& name) const;
    /// Inserts the item as the last one of the top level and clears the selection.
    void DropBasketAtEnd(Ref<Bookmark> item);
    /// Returns the basket. A missing one is made, at the end.
    Bookmark& DropBasketExists();
    Bookmark& WasteBasketExists();
    /// Inserts the item as the first one of the folder. Its row is selected alone where the folder is
    /// expanded, else the selection is cleared; in the Waste Basket it is always cleared.
    void AddToBasket(Ref<Bookmark> item);
    void AddToWaste(Ref<Bookmark> item);
    void DropBookmarkIn(Ref<Bookmark> item, Bookmark& folder);
    void DropBookmarkAtRoot(Ref<Bookmark> item);

private:
    Bookmark& basketOfKey(std::string_view key);
    void addFirst(Ref<Bookmark> item, Bookmark& folder);

    Outline& outline_;
    const BaseServices services_;
};

} // namespace tabulon
