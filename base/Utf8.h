// Single characters to and from UTF-8, and where characters begin.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tabulon::utf8 {

/// One to four bytes.
struct Encoded {
    std::array<char, 4> bytes{};
    std::uint8_t size = 0;

    constexpr std::string_view view() const { return {bytes.data(), size}; }
};

/// Returns the bytes of `character`. Requires: at most U+10FFFF. A surrogate is encoded like any other
/// number.
constexpr Encoded encoded(char32_t character) {
    const auto last = [character](int shift) {
        return static_cast<char>(0x80u | (character >> shift & 0x3Fu));
    };
    const auto first = [character](unsigned mark, int shift) {
        return static_cast<char>(mark | character >> shift);
    };
    if (character < 0x80)
        return {{static_cast<char>(character)}, 1};
    if (character < 0x800)
        return {{first(0xC0, 6), last(0)}, 2};
    if (character < 0x10000)
        return {{first(0xE0, 12), last(6), last(0)}, 3};
    return {{first(0xF0, 18), last(12), last(6), last(0)}, 4};
}

/// Appends the bytes of `character`. Requires the same as `encoded`.
inline void append(std::string& text, char32_t character) {
    text += encoded(character).view();
}

/// Returns the character at `position` and moves the position to the next one. Requires: well-formed UTF-8,
/// in which `position` is the beginning of a character.
char32_t next(std::string_view text, std::size_t& position);

/// Returns true for the second and later bytes of a character.
constexpr bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Returns the longest beginning of `text` with at most `limit` bytes that does not end inside a character.
std::string_view prefix(std::string_view text, std::size_t limit);

} // namespace tabulon::utf8
