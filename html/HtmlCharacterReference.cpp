#include "html/HtmlCharacterReference.h"

#include "base/Ascii.h"
#include "base/Utf8.h"
#include "html/HtmlEntityTable.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tabulon::html {
namespace {

// The characters of the numbers 0x80 to 0x9F, which the standard decodes as windows-1252. 0 where that
// encoding has no character, and the number is used itself.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char32_t characterNumbered(std::uint32_t number) {
    if (number == 0 || number > 0x10FFFF || (number >= 0xD800 && number <= 0xDFFF))
        return 0xFFFD;
    if (number >= 0x80 && number <= 0x9F && kWindows1252[number - 0x80] != 0)
        return kWindows1252[number - 0x80];
    return number;
}

std::size_t readNumber(std::string_view source, std::string& text) {
    std::size_t end = 2; // after "&#"
    const bool isHex = end < source.size() && (source[end] == 'x' || source[end] == 'X');
    const std::uint32_t base = isHex ? 16 : 10;
    const std::size_t begin = end += isHex;
    std::uint32_t number = 0;
    for (; end < source.size(); ++end) {
        const int digit = ascii::hexValue(source[end]);
        if (digit < 0 || static_cast<std::uint32_t>(digit) >= base)
            break;
        number = std::min<std::uint32_t>(number * base + static_cast<std::uint32_t>(digit), 0x110000);
    }
    if (end == begin)
        return 0;
    utf8::append(text, characterNumbered(number));
    return end < source.size() && source[end] == ';' ? end + 1 : end;
}

const Entity* entityNamed(std::string_view name) {
    const auto all = entities();
    const auto found = std::ranges::lower_bound(all, name, {}, &Entity::name);
    return found != all.end() && found->name == name ? &*found : nullptr;
}

void appendCharacters(const Entity& entity, std::string& text) {
    utf8::append(text, entity.first);
    if (entity.second != 0)
        utf8::append(text, entity.second);
}

} // namespace

std::size_t readCharacterReference(std::string_view source, ReferencePlace place, std::string& text) {
    constexpr std::size_t kLongestName = 31;
    constexpr std::size_t kLongestWithoutSemicolon = 6;
    if (source.size() > 1 && source[1] == '#')
        return readNumber(source, text);
    std::size_t length = 0;
    while (length <= kLongestName && length + 1 < source.size() && ascii::isAlphanumeric(source[length + 1]))
        ++length;
    const std::string_view name = source.substr(1, length);
    if (length + 1 < source.size() && source[length + 1] == ';') {
        if (const Entity* entity = entityNamed(name)) {
            appendCharacters(*entity, text);
            return length + 2;
        }
    }
    for (length = std::min(length, kLongestWithoutSemicolon); length > 0; --length) {
        const Entity* entity = entityNamed(name.substr(0, length));
        if (!entity || !entity->isSemicolonOptional)
            continue;
        const char next = length + 1 < source.size() ? source[length + 1] : '\0';
        if (place == ReferencePlace::Attribute && (next == '=' || ascii::isAlphanumeric(next)))
            return 0;
        appendCharacters(*entity, text);
        return length + 1;
    }
    return 0;
}

} // namespace tabulon::html
