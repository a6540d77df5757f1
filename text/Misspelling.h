// Recognition of names of a format that were changed by damage to a file.
#pragma once

#include <string_view>

namespace tabulon {

/// Returns true if `found` may be a damaged form of `name`. This is so if `found` contains a byte that is no
/// printable ASCII character, if one of the two is the beginning of the other, or if they have the same
/// length and differ in exactly one character. Returns false if they are equal. Requires: `name` is printable
/// ASCII.
bool isMisspelt(std::string_view found, std::string_view name);

} // namespace tabulon
