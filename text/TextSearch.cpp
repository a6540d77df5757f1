#include "text/TextSearch.h"

#include "base/Ascii.h"
#include "base/ByteBlock.h"
#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace tabulon {
namespace {

// Returns the bit in which a capital letter differs from its small one; 0 for other bytes.
char caseBit(char byte) {
    return ascii::isLetter(byte) ? 'a' - 'A' : 0;
}

} // namespace

// Tests sixteen positions of a text at once. A position is a candidate if the text has the two bytes of
// `Ends` there, at their distance. Candidates are compared byte by byte.
class TextSearch::Scan {
public:
    Scan(const TextSearch& search, std::string_view text)
        : part_(search.part_), ends_(search.ends_), text_(text), effort_(kMostEffort * text.size()) {}

    // Returns true if the text contains the part. Requires: the part is not longer than the text.
    bool run() {
        const std::size_t looked = kByteBlockSize + ends_.reach; // the bytes that one step reads
        if (text_.size() < looked) {
            std::array<char, 2 * kByteBlockSize> padded{};
            text_.copy(padded.data(), text_.size());
            return isAt(padded.data(), 0);
        }
        const std::size_t end = text_.size() - looked;
        for (std::size_t at = 0;; at = std::min(at + kByteBlockSize, end)) {
            if (isAt(text_.data() + at, at))
                return true;
            if (at == end || effort_ == 0)
                return false;
        }
    }

    bool sawOnlyAscii() const { return highBits(seen_) == 0; }
    // Returns true if too many candidates were wrong. The text must then be searched in another way.
    bool gaveUp() const { return effort_ == 0; }

private:
    static constexpr std::size_t kMostEffort = 4;

    // Returns true if the part is at one of the sixteen positions from `at` on, whose bytes are at `bytes`.
    bool isAt(const char* bytes, std::size_t at) {
        const ByteBlock start = loadBlock(bytes);
        const ByteBlock finish = loadBlock(bytes + ends_.reach);
        seen_ |= start | finish;
        const ByteBlock hits = equalBytes(start | ends_.firstCase, ends_.first) &
                               equalBytes(finish | ends_.lastCase, ends_.last);
        for (std::uint32_t places = highBits(hits); places != 0; places &= places - 1)
            if (standsAt(at + static_cast<std::size_t>(std::countr_zero(places))))
                return true;
        return false;
    }

    bool standsAt(std::size_t place) {
        if (place + part_.size() > text_.size() || effort_ == 0)
            return false;
        effort_ -= std::min(effort_, part_.size());
        return std::ranges::equal(text_.substr(place, part_.size()), part_, {}, ascii::lower);
    }

    const std::string_view part_;
    const Ends& ends_;
    const std::string_view text_;
    ByteBlock seen_{};
    std::size_t effort_; // the number of bytes that may still be compared one by one
};

TextSearch::TextSearch(std::string part) : part_(std::move(part)), isAscii_(tabulon::isAscii(part_)) {
    if (part_.empty())
        return;
    ends_.reach = std::min(part_.size(), kByteBlockSize) - 1;
    ends_.first = filledBlock(part_.front());
    ends_.firstCase = filledBlock(caseBit(part_.front()));
    ends_.last = filledBlock(part_[ends_.reach]);
    ends_.lastCase = filledBlock(caseBit(part_[ends_.reach]));
}

std::optional<bool> TextSearch::isIn(std::string_view text) const {
    if (part_.empty())
        return true;
    if (text.size() < part_.size())
        return tabulon::isAscii(text) ? std::optional(false) : std::nullopt;
    Scan scan(*this, text);
    if (scan.run() || (scan.gaveUp() && placeInSmallLetters(ascii::lowered(text))))
        return isAscii_ ? std::optional(true) : std::nullopt;
    const bool onlyAscii = scan.gaveUp() ? tabulon::isAscii(text) : scan.sawOnlyAscii();
    return onlyAscii ? std::optional(false) : std::nullopt;
}

bool TextSearch::inSmallLetters(std::string_view text) const {
    if (part_.empty() || text.size() < part_.size())
        return part_.empty();
    Scan scan(*this, text);
    return scan.run() || (scan.gaveUp() && placeInSmallLetters(text));
}

// memmem is linear for every text and part; string_view::find is not.
std::optional<std::size_t> TextSearch::placeInSmallLetters(std::string_view text) const {
    const void* place = memmem(text.data(), text.size(), part_.data(), part_.size());
    if (!place)
        return std::nullopt;
    return static_cast<std::size_t>(static_cast<const char*>(place) - text.data());
}

} // namespace tabulon
