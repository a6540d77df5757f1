// What damage makes of the names that a format is built of.
#pragma once

#include <string_view>

namespace tabulon {

/// Whether damage to `name`, of ASCII characters, can have made `found` of it: one character differs, its
/// length is off, or it has characters that no name has. False for `name` itself.
bool isMisspelt(std::string_view found, std::string_view name);

} // namespace tabulon
