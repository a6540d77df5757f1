// Commands that insert items from outside the outline: at the top of a folder, most often of a basket. A new
// basket is inserted at the end of the document. Baskets are top-level items that are found by their names
// (model/Baskets.h).
#pragma once

#include "base/BaseServices.h"
#include "model/Bookmark.h"

#include <string>
#include <string_view>

namespace tabulon {

class Outline;

/// The functions that insert an item make the document dirty, once for each item. Requires of every item
/// passed in: it is in no tree.
class BasketCommands {
public:
    /// Requires: `outline` and the services outlive this object.
    BasketCommands(Outline& outline, const BaseServices& services) : outline_(outline), services_(services) {}

    /// Returns the first top-level item of that name, whatever its kind, or `nullptr`. Case is ignored as the
    /// user's language does.
    Bookmark* SearchBasket(const std::string& name) const;
    /// Returns a new empty folder of that name with the label of baskets. It is in no tree.
    Ref<Bookmark> CreateBasket(const std::string& name) const;
    /// Clears the selection and inserts the item as the last one of the top level.
    void DropBasketAtEnd(Ref<Bookmark> item);
    /// Returns the basket that receives bookmarks from outside. A missing one is inserted at the end of the
    /// top level.
    Bookmark& DropBasketExists();
    /// Returns the Waste Basket. A missing one is inserted at the end of the top level.
    Bookmark& WasteBasketExists();
    /// Runs `DropBookmarkIn` with the basket of `DropBasketExists`.
    void AddToBasket(Ref<Bookmark> item);
    /// Clears the selection and inserts the item as the first one of the Waste Basket. A missing basket is
    /// inserted.
    void AddToWaste(Ref<Bookmark> item);
    /// Inserts the item as the first one of the folder. Its row becomes the only selected one; where the
    /// folder is not expanded, or not visible, the selection is cleared.
    void DropBookmarkIn(Ref<Bookmark> item, Bookmark& folder);
    /// Inserts the item as the first one of the top level and selects its row alone.
    void DropBookmarkAtRoot(Ref<Bookmark> item);

private:
    /// Returns the basket whose name is the text of this key. A missing one is inserted.
    Bookmark& basketOfKey(std::string_view key);
    /// Clears the selection, inserts the item as the first one of the folder and makes the document dirty.
    void addFirst(Ref<Bookmark> item, Bookmark& folder);

    Outline& outline_;
    const BaseServices services_;
};

} // namespace tabulon
