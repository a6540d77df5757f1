#include "model/TextSearch.h"

#include "model/Ascii.h"
#include "model/ByteBlock.h"
#include "model/Text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace tabulon {
namespace {

// The bit in which a capital letter differs from its small one; 0 for other characters.
char caseBit(char byte) {
    return ascii::isLetter(byte) ? 'a' - 'A' : 0;
}

} // namespace

// Looks at sixteen places of a text at once: a place is a candidate when the part's first byte stands there,
// and its last one (the sixteenth of a longer part) where that would have to stand.
class TextSearch::Scan {
public:
    Scan(std::string_view part, std::string_view text)
        : part_(part), text_(text), reach_(std::min(part.size(), kByteBlockSize) - 1),
          first_(filledBlock(part.front())), last_(filledBlock(part[reach_])),
          firstCase_(filledBlock(caseBit(part.front()))), lastCase_(filledBlock(caseBit(part[reach_]))),
          effort_(kMostEffort * text.size()) {}

    // The part is not longer than the text.
    bool run() {
        const std::size_t looked = kByteBlockSize + reach_; // bytes for one step
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
    // Too many candidates were none: the rest has to be searched in another way.
    bool gaveUp() const { return effort_ == 0; }

private:
    static constexpr std::size_t kMostEffort = 4;

    // Whether the part stands at one of the sixteen places from `bytes` on, which are those of the text from
    // `at` on.
    bool isAt(const char* bytes, std::size_t at) {
        const ByteBlock start = loadBlock(bytes);
        const ByteBlock finish = loadBlock(bytes + reach_);
        seen_ |= start | finish;
        const ByteBlock hits = equalBytes(start | firstCase_, first_) & equalBytes(finish | lastCase_, last_);
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
    const std::string_view text_;
    const std::size_t reach_;
    const ByteBlock first_;
    const ByteBlock last_;
    const ByteBlock firstCase_;
    const ByteBlock lastCase_;
    ByteBlock seen_{};
    std::size_t effort_; // how many bytes may still be compared one by one
};

std::optional<bool> TextSearch::inAscii(std::string_view text) const {
    if (part_.empty() || text.size() < part_.size())
        return isAscii(text) ? std::optional(part_.empty()) : std::nullopt;
    Scan scan(part_, text);
    const bool found = scan.run();
    const bool sawAll = !found && !scan.gaveUp();
    if (!scan.sawOnlyAscii() || (!sawAll && !isAscii(text)))
        return std::nullopt;
    return scan.gaveUp() ? placeInSmallLetters(ascii::lowered(text)).has_value() : found;
}

bool TextSearch::inSmallLetters(std::string_view text) const {
    if (part_.empty() || text.size() < part_.size())
        return part_.empty();
    Scan scan(part_, text);
    return scan.run() || (scan.gaveUp() && placeInSmallLetters(text));
}

// Unlike string_view::find, memmem is linear whatever the texts.
std::optional<std::size_t> TextSearch::placeInSmallLetters(std::string_view text) const {
    const void* place = memmem(text.data(), text.size(), part_.data(), part_.size());
    if (!place)
        return std::nullopt;
    return static_cast<std::size_t>(static_cast<const char*>(place) - text.data());
}

} // namespace tabulon
