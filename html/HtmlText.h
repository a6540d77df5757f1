// White space in the texts of a page: space, tab, line feed, form feed and carriage return. Other spaces of
// Unicode do not count.
#pragma once

#include "base/Ascii.h"

#include <algorithm>
#include <string_view>

namespace tabulon::html {

/// Returns the white space that `text` begins with, as a part of `text`. Empty if it begins with another
/// character. Linear in the white space.
inline std::string_view leadingBlanks(std::string_view text) {
    const auto end = std::ranges::find_if_not(text, ascii::isSpace);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

/// Returns true if `text` contains only white space; true for an empty text. Linear up to the first other
/// character.
inline bool isBlank(std::string_view text) {
    return leadingBlanks(text).size() == text.size();
}

} // namespace tabulon::html
