// The two baskets of a document: top-level items that are identified by their names in the current language.
// The layers above show them and put bookmarks into them.
#pragma once

#include "base/Localization.h"
#include "model/Bookmark.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The keys of the baskets' names among the program's texts: the one that receives bookmarks from outside,
/// and the one that receives removed bookmarks.
inline constexpr std::string_view kDropBasket = "DropBasket";
inline constexpr std::string_view kWasteBasket = "WasteBasket";

/// The label of a basket that the program makes.
inline constexpr std::uint8_t kBasketLabel = 2;

/// Returns the first child of `root` whose name equals `name`, UTF-8, ignoring case by the rules of the
/// locale of `texts`; nullptr if there is none. The kind of the child does not matter: a link or a separator
/// of this name is the basket. Linear in the number of children. The tree owns the result.
Bookmark* searchBasket(const Bookmark& root, std::string_view name, const Localization& texts);

/// Returns a new empty folder with this name, UTF-8, the label of baskets and the added-date `now`. It
/// belongs to the document of `root`, but has no parent.
Ref<Bookmark> createBasket(const std::string& name, const Bookmark& root, Date now);

} // namespace tabulon
