#include "base/Utf8.h"

#include <unicode/utf8.h>

#include <cstring>

namespace tabulon {
namespace {

// Returns the position of the first byte that is not ASCII, or the size.
std::size_t asciiPrefix(std::string_view bytes) {
    const auto isAsciiAt = [&bytes](std::size_t at) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, 8);
        return (word & 0x8080808080808080u) == 0;
    };
    std::size_t i = 0;
    while (i + 8 <= bytes.size() && isAsciiAt(i))
        i += 8;
    // The last word may overlap the one before, which is cheaper than testing the rest byte by byte.
    if (i > 0 && i + 8 > bytes.size() && isAsciiAt(bytes.size() - 8))
        return bytes.size();
    while (i < bytes.size() && static_cast<unsigned char>(bytes[i]) < 0x80)
        ++i;
    return i;
}

} // namespace

bool isAscii(std::string_view bytes) {
    return asciiPrefix(bytes) == bytes.size();
}

bool isValidUtf8(std::string_view bytes) {
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    std::size_t i = asciiPrefix(bytes);
    while (i < bytes.size()) {
        UChar32 character = 0;
        U8_NEXT(data, i, bytes.size(), character); // takes half the time of `decodedAt` for mixed texts
        if (character < 0)
            return false;
    }
    return true;
}

std::string decodeUtf8Leniently(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    std::size_t copied = 0;
    for (std::size_t i = 0; i < bytes.size();) {
        if (const utf8::Decoded decoded = utf8::decodedAt(bytes, i); decoded.size > 0) {
            i += decoded.size;
            continue;
        }
        result.append(bytes.substr(copied, i - copied));
        result += "\xEF\xBF\xBD";
        i += utf8::malformedSize(bytes, i);
        copied = i;
    }
    result.append(bytes.substr(copied));
    return result;
}

namespace utf8 {

char32_t next(std::string_view text, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(text[position++]);
    const int rest = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    char32_t character = rest == 0 ? lead : lead & (0x3Fu >> rest);
    for (int i = 0; i < rest && position < text.size(); ++i)
        character = (character << 6) | (static_cast<unsigned char>(text[position++]) & 0x3Fu);
    return character;
}

std::size_t malformedSize(std::string_view text, std::size_t position) {
    const auto* data = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t end = position;
    UChar32 character = 0;
    U8_NEXT(data, end, text.size(), character);
    return end - position;
}

std::string_view prefix(std::string_view text, std::size_t limit) {
    if (text.size() <= limit)
        return text;
    while (limit > 0 && isContinuation(text[limit]))
        --limit;
    return text.substr(0, limit);
}

} // namespace utf8
} // namespace tabulon
