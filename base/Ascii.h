// Questions about single bytes, as formats and web standards ask them: the language of the user makes no
// difference.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tabulon::ascii {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
constexpr bool isLetter(char c) {
    return lower(c) >= 'a' && lower(c) <= 'z';
}
constexpr bool isAlphanumeric(char c) {
    return isDigit(c) || isLetter(c);
}
/// The white space of HTML.
constexpr bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\r';
}
/// Negative for what is no digit of base 16.
constexpr int hexValue(char c) {
    if (isDigit(c))
        return c - '0';
    return lower(c) >= 'a' && lower(c) <= 'f' ? lower(c) - 'a' + 10 : -1;
}
/// The text without characters of `blanks` at its beginning and end.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
inline std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}
/// Whether the text begins so, whatever the case of ASCII letters.
inline bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() &&
           std::ranges::equal(text.substr(0, prefix.size()), prefix, {}, lower, lower);
}
/// Equal but for the case of ASCII letters.
inline bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

} // namespace tabulon::ascii
