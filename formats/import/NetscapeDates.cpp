#include "formats/import/NetscapeDates.h"

#include <cstdint>
#include <limits>
#include <string_view>

namespace tabulon {
namespace {

constexpr std::size_t npos = std::string_view::npos;

// What `c` is worth as a decimal digit; more than 9 for everything else.
unsigned digitAt(char c) {
    return static_cast<unsigned char>(c) - unsigned{'0'};
}

// The number with one more digit at its end; the largest number where that is too large.
std::uint64_t withDigit(std::uint64_t number, unsigned digit) {
    std::uint64_t result = 0;
    const bool tooLarge =
        __builtin_mul_overflow(number, 10u, &result) || __builtin_add_overflow(result, digit, &result);
    return tooLarge ? std::numeric_limits<std::uint64_t>::max() : result;
}

// The date whose attribute's name ends before `value`.
Date dateAt(const ScannedBytes& bytes, std::size_t value) {
    if (bytes.at(value) != '"')
        return Date();
    const std::string_view rest = bytes.range(value + 1, bytes.size());
    std::uint64_t number = 0;
    std::size_t digits = 0;
    for (; digits < rest.size() && digitAt(rest[digits]) < 10; ++digits)
        number = withDigit(number, digitAt(rest[digits]));
    const std::size_t end = value + 1 + digits;
    bytes.countExamined(value, end);
    if (bytes.at(end) != '"' && bytes.find('"', end) == npos)
        return Date();
    return Date::fromUnixSeconds(static_cast<double>(number));
}

} // namespace

// Both names have one underscore: that byte is rare, unlike their letters in the icons that browsers write
// into links. No name begins before `start`: the "<" that stands there would be in it.
NetscapeDates netscapeDates(const ScannedBytes& bytes, std::size_t start, std::size_t next) {
    constexpr std::size_t kAdd = 3; // letters before the underscore
    constexpr std::size_t kLast = 4;
    std::size_t added = npos;
    std::size_t modified = npos;
    for (std::size_t mark = start; added == npos || modified == npos;) {
        mark = bytes.find('_', mark + 1, next + kLast + 1);
        if (mark == npos)
            break;
        if (added == npos && mark <= next + kAdd && bytes.startsAt(mark - kAdd, "ADD_DATE="))
            added = mark + std::string_view("_DATE=").size();
        else if (modified == npos && bytes.startsAt(mark - kLast, "LAST_MODIFIED="))
            modified = mark + std::string_view("_MODIFIED=").size();
    }
    return {dateAt(bytes, added), dateAt(bytes, modified)};
}

} // namespace tabulon
