// Pasteboard items as bytes for this process alone: the form in which they come back as they were.
#pragma once

#include "window/PasteboardItem.h"

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// The items behind the token of the process.
std::string privateForm(const std::vector<PasteboardItem>& items, const std::string& token);

/// The items of such bytes without the token; none where the bytes are not whole.
std::vector<PasteboardItem> itemsOfPrivateForm(std::string_view bytes);

} // namespace tabulon
