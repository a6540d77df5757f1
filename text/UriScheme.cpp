#include "text/UriScheme.h"

#include "base/Ascii.h"

#include <algorithm>

namespace tabulon {

std::size_t schemeLength(std::string_view address) {
    if (address.empty() || !ascii::isLetter(address.front()))
        return 0;
    const auto end = std::ranges::find_if_not(
        address, [](char c) { return ascii::isAlphanumeric(c) || c == '+' || c == '-' || c == '.'; });
    return end != address.end() && *end == ':' ? static_cast<std::size_t>(end - address.begin()) : 0;
}

} // namespace tabulon
