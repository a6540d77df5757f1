// Single characters from and to UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::utf8 {

/// Appends the bytes of a character, which is no surrogate.
void append(std::string& text, char32_t character);

/// The character at `position` of well-formed UTF-8, and moves the position behind it.
char32_t next(std::string_view text, std::size_t& position);

} // namespace tabulon::utf8
