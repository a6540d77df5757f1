// The two baskets of a document: top-level items that are known by their names alone, in the language of the
// moment. How they are shown, and what is put into them when, is the business of the layers above.
#pragma once

#include "base/Localization.h"
#include "model/Bookmark.h"

#include <string>
#include <string_view>

namespace tabulon {

/// What the baskets are called, as keys of the program's texts: the one that receives bookmarks from outside,
/// and the one that receives bookmarks that are removed.
inline constexpr std::string_view kDropBasket = "DropBasket";
inline constexpr std::string_view kWasteBasket = "WasteBasket";

/// The label of a basket that the program makes.
inline constexpr std::uint8_t kBasketLabel = 2;

/// The first child of `root` whose name is `name`, as the language of `texts` compares, whatever its case;
/// null for none. Its kind does not count: a link or a separator of that name is the basket.
Bookmark* searchBasket(const Bookmark& root, std::string_view name, const Localization& texts);

/// A new empty folder of that name with the label of baskets, in no tree, of the document of `root`.
Ref<Bookmark> createBasket(const std::string& name, const Bookmark& root, Date now);

} // namespace tabulon
