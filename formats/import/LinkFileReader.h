// Files that contain one link: property lists (".webloc", ".mailloc", ".ftploc"), internet shortcuts (".url")
// and links of the desktop (".desktop").
#pragma once

#include "base/Text.h"

#include <optional>
#include <string_view>

namespace tabulon {

struct LinkFileContent {
    /// The address as written in the file; never null or empty.
    Text url = {};
    /// The name; null where the file has none.
    Text name = {};
};

/// Returns the link in a file, whose kind is detected from its content, not from its name. Returns `nullopt`
/// for a damaged file, and for one without an address. Of equal keys in a shortcut or a desktop entry the
/// first one counts. Bytes that are no UTF-8 are decoded as by `Text::fromBytes`. Linear.
std::optional<LinkFileContent> readLinkFile(std::string_view bytes);

} // namespace tabulon
