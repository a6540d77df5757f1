#include "formats/import/NetscapeDates.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <system_error>

namespace tabulon {
namespace {

struct Number {
    std::uint64_t value;
    std::size_t digits;
};

// Returns the decimal number at the beginning of `text`, limited to the largest one.
Number numberIn(std::string_view text) {
    constexpr std::size_t kAlwaysFits = 18; // digits
    std::uint64_t value = 0;
    std::size_t digits = 0;
    for (; digits < std::min(text.size(), kAlwaysFits); ++digits) {
        const unsigned digit = static_cast<unsigned char>(text[digits]) - unsigned{'0'};
        if (digit > 9)
            return {value, digits};
        value = value * 10 + digit;
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool tooLarge = error == std::errc::result_out_of_range;
    return {tooLarge ? std::numeric_limits<std::uint64_t>::max() : value,
            static_cast<std::size_t>(end - text.data())};
}

// Returns the date whose quoted value begins at `value`.
Date dateAt(const ScannedBytes& bytes, std::size_t value) {
    if (bytes.at(value) != '"')
        return Date();
    const Number number = numberIn(bytes.range(value + 1, bytes.size()));
    const std::size_t end = value + 1 + number.digits;
    bytes.countExamined(value, end);
    if (bytes.at(end) != '"' && bytes.find('"', end) == std::string_view::npos)
        return Date();
    return Date::fromUnixSeconds(static_cast<double>(number.value));
}

} // namespace

// Converts eight digits in one step, and then the last two.
std::optional<std::uint64_t> tenDigits(const char* bytes) {
    static_assert(std::endian::native == std::endian::little);
    constexpr std::uint64_t kEach = 0x0101010101010101u;
    const auto digitsFrom = [](const char* place) {
        std::uint64_t word = 0;
        std::memcpy(&word, place, sizeof(word));
        return word ^ kEach * '0';
    };
    std::uint64_t first = digitsFrom(bytes);
    const std::uint64_t last = digitsFrom(bytes + 2);
    if (((first + kEach * (0x7F - 9)) | first | (last + kEach * (0x7F - 9)) | last) & kEach * 0x80)
        return std::nullopt;
    // First numbers of two digits in bytes 0, 2, 4 and 6; then these times a million, 10000, 100 and 1.
    constexpr std::uint64_t kFirstAndThird = 0x000000FF000000FFu;
    first = first * 10 + (first >> 8);
    first = ((first & kFirstAndThird) * (100 + (std::uint64_t{1000000} << 32)) +
             (first >> 16 & kFirstAndThird) * (1 + (std::uint64_t{10000} << 32))) >>
            32;
    return first * 100 + (last >> 48 & 0xFF) * 10 + (last >> 56);
}

// Both names contain one underscore. That byte is rare, unlike the letters, in the icons that browsers write
// into links. No name begins before `start`, because it would contain the "<" there.
NetscapeDates netscapeDates(const ScannedBytes& bytes, std::size_t start, std::size_t next) {
    constexpr std::size_t kAdd = 3; // letters before the underscore
    constexpr std::size_t kLast = 4;
    std::size_t added = std::string_view::npos;
    std::size_t modified = std::string_view::npos;
    for (std::size_t mark = start; added == std::string_view::npos || modified == std::string_view::npos;) {
        mark = bytes.find('_', mark + 1, next + kLast + 1);
        if (mark == std::string_view::npos)
            break;
        if (added == std::string_view::npos && mark <= next + kAdd &&
            bytes.startsAt(mark - kAdd, "ADD_DATE="))
            added = mark + std::string_view("_DATE=").size();
        else if (modified == std::string_view::npos && bytes.startsAt(mark - kLast, "LAST_MODIFIED="))
            modified = mark + std::string_view("_MODIFIED=").size();
    }
    return {dateAt(bytes, added), dateAt(bytes, modified)};
}

} // namespace tabulon
