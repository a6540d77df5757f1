// The scheme of an address: the name before its first colon. Parsing of whole addresses is in url/.
#pragma once

#include <string_view>

namespace tabulon {

/// Returns the length in bytes of the scheme that `address` begins with, without the colon after it, or 0 if
/// it begins with none. A scheme is an ASCII letter followed by ASCII letters, digits, "+", "-" and ".".
std::size_t schemeLength(std::string_view address);

} // namespace tabulon
