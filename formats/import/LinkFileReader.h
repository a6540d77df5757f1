// Files that hold one link: property lists (".webloc", ".mailloc", ".ftploc"), internet shortcuts (".url")
// and links of the desktop (".desktop").
#pragma once

#include "base/Text.h"

#include <optional>
#include <string_view>

namespace tabulon {

struct LinkFileContent {
    /// As it stands in the file; never null or empty.
    Text url = {};
    /// Null where the file has none.
    Text name = {};
};

/// What the file holds, told by its content; nothing for a file that holds no link or is damaged. Of equal
/// keys the first counts. Bytes that are no UTF-8 are read as `Text::fromBytes` does. Linear.
std::optional<LinkFileContent> readLinkFile(std::string_view bytes);

} // namespace tabulon
