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

    /// The basket of that name, or null.
    Bookmark* SearchBasket(const std::string& name) const;
    /// A new basket, not yet in the tree.
    Ref<Bookmark> CreateBasket(const std::string& name) const;
    /// The item becomes the last one of the top level. Nothing is selected then.
    void DropBasketAtEnd(Ref<Bookmark> item);
    /// The baskets; one that is missing is made, at the end.
    Bookmark& DropBasketExists();
    Bookmark& WasteBasketExists();
    /// The item becomes the folder's first one. Its row is selected alone where the folder is expanded, else
    /// nothing is; in the Waste Basket nothing ever is.
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
