// The scheme of an address: the name before its first colon.
#pragma once

#include <string_view>

namespace tabulon {

/// Returns the length of the scheme that `address` begins with, without the colon after it; 0 where it begins
/// with none. A scheme is a letter and then letters, digits, "+", "-" and "." of ASCII.
std::size_t schemeLength(std::string_view address);

} // namespace tabulon
