// Pasteboard items as bytes for this process alone: the form that is read back without loss.
#pragma once

#include "window/PasteboardItem.h"

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Returns the bytes of `token`, followed by the items.
std::string privateForm(const std::vector<PasteboardItem>& items, const std::string& token);

/// Returns the items of such bytes, which begin after the token. Returns an empty list if the bytes end too
/// early.
std::vector<PasteboardItem> itemsOfPrivateForm(std::string_view bytes);

} // namespace tabulon
