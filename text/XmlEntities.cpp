#include "text/XmlEntities.h"

#include "base/Ascii.h"
#include "base/Utf8.h"

#include <unicode/utf.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

namespace tabulon {
namespace {

struct NamedEntity {
    char character;
    std::string_view text;
};

constexpr auto kEntities = std::to_array<NamedEntity>(
    {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&apos;"}});

// For every byte: its index in `kEntities` plus 1, or 0 for a byte that is not escaped.
constexpr std::array<std::uint8_t, 256> makeEscapes() {
    std::array<std::uint8_t, 256> escapes{};
    for (std::size_t i = 0; i < kEntities.size(); ++i)
        escapes[static_cast<unsigned char>(kEntities[i].character)] = static_cast<std::uint8_t>(i + 1);
    return escapes;
}

constexpr auto kEscapes = makeEscapes();
constexpr std::uint32_t kLastCodePoint = 0x10FFFF;

struct Reference {
    std::size_t begin;
    std::size_t end;
    std::uint32_t codePoint;
};

bool isCharacter(std::uint32_t codePoint) {
    return codePoint != 0 && codePoint <= kLastCodePoint && !U_IS_SURROGATE(codePoint);
}

// Returns the character reference at `begin`, or `nullopt`. Requires: "&#" at `begin`.
std::optional<Reference> characterReference(std::string_view text, std::size_t begin) {
    const std::string_view rest = text.substr(begin);
    const bool hexadecimal = rest.size() > 2 && (rest[2] == 'x' || rest[2] == 'X');
    const std::uint32_t base = hexadecimal ? 16 : 10;
    const std::size_t digits = hexadecimal ? 3 : 2;
    std::uint32_t value = 0;
    std::size_t i = digits;
    for (; i < rest.size(); ++i) {
        const int digit = ascii::hexValue(rest[i]);
        if (digit < 0 || static_cast<std::uint32_t>(digit) >= base)
            break;
        value = value > kLastCodePoint ? value : value * base + static_cast<std::uint32_t>(digit);
    }
    if (i == digits || i == rest.size() || rest[i] != ';' || !isCharacter(value))
        return std::nullopt;
    return Reference{begin, begin + i + 1, value};
}

// Returns the entity or character reference at `begin`, or `nullopt`. Requires: "&" at `begin`.
std::optional<Reference> referenceAt(std::string_view text, std::size_t begin) {
    const std::string_view rest = text.substr(begin);
    const char first = rest.size() > 1 ? rest[1] : '\0';
    if (first == '#')
        return characterReference(text, begin);
    for (const NamedEntity& entity : kEntities)
        if (entity.text[1] == first && rest.starts_with(entity.text))
            return Reference{begin, begin + entity.text.size(), static_cast<unsigned char>(entity.character)};
    return std::nullopt;
}

// Returns the first entity or character reference at or after `from`, or `nullopt`.
std::optional<Reference> nextReference(std::string_view text, std::size_t from) {
    for (std::size_t at = text.find('&', from); at != std::string_view::npos; at = text.find('&', at + 1))
        if (const auto reference = referenceAt(text, at))
            return reference;
    return std::nullopt;
}

} // namespace

void appendXmlEscaped(std::string& result, std::string_view text) {
    std::size_t done = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::uint8_t escape = kEscapes[static_cast<unsigned char>(text[i])];
        if (escape == 0)
            continue;
        result.append(text.substr(done, i - done));
        result.append(kEntities[escape - 1u].text);
        done = i + 1;
    }
    result.append(text.substr(done));
}

std::string escapeXmlEntities(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    appendXmlEscaped(result, text);
    return result;
}

std::string unescapeXmlEntities(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (auto found = nextReference(text, 0); found; found = nextReference(text, done)) {
        result.append(text.substr(done, found->begin - done));
        utf8::append(result, found->codePoint);
        done = found->end;
    }
    result.append(text.substr(done));
    return result;
}

Text textOfXml(std::string_view utf8) {
    return nextReference(utf8, 0) ? Text(unescapeXmlEntities(utf8)) : Text(utf8);
}

Text textOfXmlBytes(std::string_view bytes) {
    return isValidUtf8(bytes) ? textOfXml(bytes) : textOfXml(decodeUtf8Leniently(bytes));
}

} // namespace tabulon
