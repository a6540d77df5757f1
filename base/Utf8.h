// UTF-8: validation, encoding and decoding, and the boundaries between characters.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tabulon {

/// Returns true if no byte is above 127; true for empty bytes. Linear. A NUL is ASCII.
bool isAscii(std::string_view bytes);

/// Returns true if `bytes` is well-formed UTF-8; true for empty bytes. Linear. Surrogates, overlong sequences
/// and characters above U+10FFFF are malformed. A NUL is valid.
bool isValidUtf8(std::string_view bytes);

/// Returns `bytes` with each maximal malformed part replaced by one U+FFFD, which is valid UTF-8. Valid input
/// is returned unchanged. Linear. The result may have up to three times as many bytes. A maximal malformed
/// part is one to three bytes; see `utf8::malformedSize`. No byte order mark is removed.
std::string decodeUtf8Leniently(std::string_view bytes);

namespace utf8 {

/// A character in UTF-8: one to four bytes.
struct Encoded {
    /// Those from `size` on are 0.
    std::array<char, 4> bytes{};
    std::uint8_t size = 0;

    /// Returns the bytes, valid as long as this object.
    constexpr std::string_view view() const { return {bytes.data(), size}; }
};

/// Returns the bytes of `character`. A surrogate is encoded like any other number. Requires: at most
/// U+10FFFF. The size is 1 to 4. For a larger number the result is not specified.
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

/// Appends the bytes of `character`. Requires: at most U+10FFFF. A surrogate is encoded like any other
/// number. Linear in the bytes appended, as long as `text` has room.
inline void append(std::string& text, char32_t character) {
    text += encoded(character).view();
}

/// Returns the character at `position` and moves `position` to the next one, or to the end. Constant time.
/// Requires: well-formed UTF-8, in which `position` is the beginning of a character, and not the end. Reads
/// no byte after the end, also of a text that is cut off.
char32_t next(std::string_view text, std::size_t& position);

/// A character and the number of its bytes; 0 bytes for malformed UTF-8.
struct Decoded {
    /// 0 for malformed UTF-8, and for a NUL, which has 1 byte.
    char32_t character = 0;
    std::uint8_t size = 0;
};

/// Returns the character at `position`, without bytes if no well-formed sequence begins there. Surrogates,
/// overlong sequences and characters above U+10FFFF are malformed. Constant time. Requires: position <
/// text.size(). Reads at most four bytes, and none after the end.
constexpr Decoded decodedAt(std::string_view text, std::size_t position) {
    const char* const bytes = text.data() + position;
    const std::size_t left = text.size() - position;
    const char32_t lead = static_cast<unsigned char>(bytes[0]);
    if (lead < 0x80)
        return {lead, 1};
    // The six bits of a continuation byte, or a number above 0x3F for another byte.
    const auto tail = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]) ^ 0x80U; };
    if (lead - 0xC2 < 0x1E) {
        if (left < 2 || tail(1) > 0x3F) [[unlikely]]
            return {};
        return {(lead & 0x1F) << 6 | tail(1), 2};
    }
    if (lead - 0xE0 < 0x10) {
        if (left < 3 || (tail(1) | tail(2)) > 0x3F) [[unlikely]]
            return {};
        const char32_t character = (lead & 0xF) << 12 | tail(1) << 6 | tail(2);
        if (character < 0x800 || (character & 0xF800) == 0xD800) [[unlikely]]
            return {};
        return {character, 3};
    }
    if (lead - 0xF0 >= 5 || left < 4 || (tail(1) | tail(2) | tail(3)) > 0x3F) [[unlikely]]
        return {};
    const char32_t character = (lead & 7) << 18 | tail(1) << 12 | tail(2) << 6 | tail(3);
    if (character < 0x10000 || character > 0x10FFFF) [[unlikely]]
        return {};
    return {character, 4};
}

/// Returns the size in bytes of the maximal malformed part at `position`: 1 to 3, and at most to the end of
/// `text`. Requires: position < text.size(), and no well-formed sequence begins there. The part is the
/// longest beginning of a well-formed sequence, or one byte that begins none. Constant time.
std::size_t malformedSize(std::string_view text, std::size_t position);

/// Returns the character at `position`, or U+FFFD for a maximal malformed part, and moves `position` to the
/// byte after it. Constant time. Requires: position < text.size(). In a loop, every byte belongs to exactly
/// one result, for malformed input too.
inline char32_t nextLenient(std::string_view text, std::size_t& position) {
    const Decoded decoded = decodedAt(text, position);
    if (decoded.size == 0) [[unlikely]] {
        position += malformedSize(text, position);
        return 0xFFFD;
    }
    position += decoded.size;
    return decoded.character;
}

/// Returns true for the second and later bytes of a character. These are 0x80 to 0xBF. The bytes around it
/// are not part of the test.
constexpr bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// Returns the longest beginning of `text` with at most `limit` bytes that does not end inside a character.
/// The result is a part of `text`, and may be empty. Constant time. Requires: well-formed UTF-8. Returns all
/// of `text` if it is not longer than `limit`.
std::string_view prefix(std::string_view text, std::size_t limit);

} // namespace utf8
} // namespace tabulon
