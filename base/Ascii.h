// Classification and case of ASCII characters, as formats and web standards define them. The locale has no
// influence. Functions of whole Unicode texts are in text/.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tabulon::ascii {

// The functions of one byte take constant time. A byte above 127 is no digit, letter or white space.

/// Returns true for 0 to 9.
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
/// Returns the small letter of a capital ASCII letter, and every other byte unchanged.
constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
/// Returns true for A to Z and a to z.
constexpr bool isLetter(char c) {
    return lower(c) >= 'a' && lower(c) <= 'z';
}
/// Returns true for an ASCII digit or letter.
constexpr bool isAlphanumeric(char c) {
    return isDigit(c) || isLetter(c);
}
/// Returns true for the white space of HTML: space, tab, line feed, form feed and carriage return. A vertical
/// tab, a NUL and a no-break space are none.
constexpr bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\r';
}
/// Returns the value of a hexadecimal digit of either case, 0 to 15, or -1 for any other byte.
constexpr int hexValue(char c) {
    if (isDigit(c))
        return c - '0';
    return lower(c) >= 'a' && lower(c) <= 'f' ? lower(c) - 'a' + 10 : -1;
}
/// Returns `text` without the characters of `blanks` at its beginning and end. The result is a part of
/// `text`, empty where `text` contains only blanks. Linear. `blanks` is a set of single bytes; an empty one
/// removes nothing.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
/// Returns a copy of `text` with small letters in place of the capital ASCII letters. Other bytes, those of
/// UTF-8 included, are unchanged, so valid UTF-8 stays valid. Linear. The size stays the same.
inline std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}
/// Returns true if `text` begins with `prefix`, ignoring the case of ASCII letters. True for an empty prefix.
/// Neither argument has to be in small letters. Linear in the size of `prefix`.
inline bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() &&
           std::ranges::equal(text.substr(0, prefix.size()), prefix, {}, lower, lower);
}
/// Returns true if `a` and `b` are equal, ignoring the case of ASCII letters. Other bytes are compared as
/// they are, so "É" and "é" differ. Linear; constant for texts of different sizes.
inline bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

} // namespace tabulon::ascii
