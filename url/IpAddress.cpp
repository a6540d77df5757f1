#include "url/IpAddress.h"

#include "base/Ascii.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <vector>

namespace tabulon::url {
namespace {

constexpr std::size_t npos = std::string_view::npos;

std::vector<std::string_view> partsOf(std::string_view host) {
    std::vector<std::string_view> parts;
    for (std::size_t begin = 0; begin <= host.size();) {
        const std::size_t dot = std::min(host.find('.', begin), host.size());
        parts.push_back(host.substr(begin, dot - begin));
        begin = dot + 1;
    }
    if (parts.back().empty() && parts.size() > 1)
        parts.pop_back();
    return parts;
}

// Returns a number in base 8, 10 or 16, or `nullopt`. A number above 64 bits becomes UINT64_MAX.
std::optional<std::uint64_t> numberOf(std::string_view part) {
    if (part.empty())
        return std::nullopt;
    int base = 10;
    if (part.starts_with("0x") || part.starts_with("0X")) {
        base = 16;
        part.remove_prefix(2);
    } else if (part.size() > 1 && part.front() == '0') {
        base = 8;
        part.remove_prefix(1);
    }
    if (part.empty())
        return 0;
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number, base);
    if (end != part.data() + part.size() || error == std::errc::invalid_argument)
        return std::nullopt;
    return error == std::errc::result_out_of_range ? UINT64_MAX : number;
}

// Parses the eight numbers ("pieces") of an IPv6 address.
class PieceReader {
public:
    explicit PieceReader(std::string_view text) : text_(text) {}

    std::optional<std::array<std::uint16_t, 8>> run() {
        if (text_.starts_with(':')) {
            if (!text_.starts_with("::"))
                return std::nullopt;
            text_.remove_prefix(2);
            gap_ = 0;
        }
        while (!text_.empty())
            if (!readPiece())
                return std::nullopt;
        if (gap_ == npos)
            return count_ == pieces_.size() ? std::optional(pieces_) : std::nullopt;
        const auto begin = pieces_.begin() + static_cast<std::ptrdiff_t>(gap_);
        std::rotate(begin, pieces_.begin() + static_cast<std::ptrdiff_t>(count_), pieces_.end());
        return pieces_;
    }

private:
    bool readPiece() {
        if (used() == pieces_.size())
            return false;
        if (text_.front() == ':') {
            text_.remove_prefix(1);
            return gap_ == npos && ((gap_ = count_), true);
        }
        unsigned value = 0;
        std::size_t length = 0;
        while (length < 4 && length < text_.size() && ascii::hexValue(text_[length]) >= 0)
            value = value * 16 + static_cast<unsigned>(ascii::hexValue(text_[length++]));
        const char next = length < text_.size() ? text_[length] : '\0';
        if (next == '.')
            return length > 0 && used() <= 6 && readIPv4();
        if (length < text_.size() && (next != ':' || length + 1 == text_.size()))
            return false;
        text_.remove_prefix(std::min(length + 1, text_.size()));
        pieces_[count_++] = static_cast<std::uint16_t>(value);
        return true;
    }

    // Parses the last two pieces in IPv4 form: four decimal numbers without leading zeros.
    bool readIPv4() {
        for (int part = 0; part < 4; ++part) {
            if (part > 0) {
                if (!text_.starts_with('.'))
                    return false;
                text_.remove_prefix(1);
            }
            unsigned value = 0;
            std::size_t length = 0;
            while (length < 4 && length < text_.size() && ascii::isDigit(text_[length]))
                value = value * 10 + static_cast<unsigned>(text_[length++] - '0');
            if (length == 0 || value > 255 || (length > 1 && text_.front() == '0'))
                return false;
            text_.remove_prefix(length);
            std::uint16_t& piece = pieces_[count_ + static_cast<std::size_t>(part / 2)];
            piece = static_cast<std::uint16_t>(piece * 256 + value);
        }
        count_ += 2;
        return text_.empty();
    }

    // "::" replaces at least one piece.
    std::size_t used() const { return count_ + (gap_ == npos ? 0 : 1); }

    std::string_view text_;
    std::array<std::uint16_t, 8> pieces_{};
    std::size_t count_ = 0;
    std::size_t gap_ = npos; // the number of pieces before "::"
};

struct Run {
    std::size_t begin = 0;
    std::size_t length = 0;
};

// Returns the first of the longest runs of zeros, or an empty run if none is longer than one.
Run longestZeros(const std::array<std::uint16_t, 8>& pieces) {
    Run longest;
    Run run;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        run = pieces[i] != 0 ? Run{i + 1, 0} : Run{run.begin, run.length + 1};
        if (run.length > longest.length)
            longest = run;
    }
    return longest.length > 1 ? longest : Run{};
}

} // namespace

bool endsInNumber(std::string_view host) {
    const std::string_view last = partsOf(host).back();
    if (!last.empty() && std::ranges::all_of(last, ascii::isDigit))
        return true;
    return (last.starts_with("0x") || last.starts_with("0X")) && numberOf(last).has_value();
}

std::optional<std::string> parseIPv4(std::string_view host) {
    const std::vector<std::string_view> parts = partsOf(host);
    if (parts.size() > 4)
        return std::nullopt;
    std::uint64_t address = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::optional<std::uint64_t> number = numberOf(parts[i]);
        const bool isLast = i + 1 == parts.size();
        const std::size_t bits = isLast ? 8 * (4 - i) : 8;
        if (!number || *number >= std::uint64_t{1} << bits)
            return std::nullopt;
        address |= isLast ? *number : *number << (8 * (3 - i));
    }
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += std::to_string(address >> shift & 255) + (shift > 0 ? "." : "");
    return text;
}

std::optional<std::string> parseIPv6(std::string_view text) {
    const auto pieces = PieceReader(text).run();
    if (!pieces)
        return std::nullopt;
    const Run zeros = longestZeros(*pieces);
    std::string result;
    for (std::size_t i = 0; i < pieces->size(); ++i) {
        if (zeros.length > 0 && i == zeros.begin) {
            result += i == 0 ? "::" : ":";
            i += zeros.length - 1;
            continue;
        }
        std::array<char, 4> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), (*pieces)[i], 16).ptr;
        result.append(digits.data(), end);
        if (i + 1 < pieces->size())
            result += ':';
    }
    return result;
}

} // namespace tabulon::url
