// Long inputs made of one part.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tabulon {

/// Returns `part` `times` times in a row. Linear in the size of the result.
inline std::string repeated(std::string_view part, std::size_t times) {
    std::string text;
    text.reserve(part.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        text += part;
    return text;
}

} // namespace tabulon
