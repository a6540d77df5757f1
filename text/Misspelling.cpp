#include "text/Misspelling.h"

#include <algorithm>

namespace tabulon {

bool isMisspelt(std::string_view found, std::string_view name) {
    const auto isStrange = [](char c) { return c < ' ' || c > '~'; };
    if (std::any_of(found.begin(), found.end(), isStrange))
        return true;
    const std::size_t common = std::min(found.size(), name.size());
    if (found.size() != name.size())
        return found.substr(0, common) == name.substr(0, common);
    std::size_t different = 0;
    for (std::size_t i = 0; i < common; ++i)
        different += found[i] == name[i] ? 0 : 1;
    return different == 1;
}

} // namespace tabulon
