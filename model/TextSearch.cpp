#include "model/TextSearch.h"

#include "model/Ascii.h"
#include "model/Text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace tabulon {
namespace {

constexpr std::size_t kBlock = 16;
using Block = unsigned char __attribute__((vector_size(kBlock)));

Block load(const char* bytes) {
    Block block;
    std::memcpy(&block, bytes, kBlock);
    return block;
}

// Whether any of the bits is set in any byte.
bool hasAny(Block block, std::uint64_t bits) {
    const auto words = std::bit_cast<std::array<std::uint64_t, kBlock / sizeof(bits)>>(block);
    return ((words[0] | words[1]) & bits) != 0;
}

// The bit in which a capital letter differs from its small one; 0 for other characters.
unsigned char caseBit(char byte) {
    return ascii::isLetter(byte) ? 'a' - 'A' : 0;
}

Block filledWith(unsigned char byte) {
    return Block{} + byte;
}

} // namespace

// Looks at sixteen places of a text at once: a place is a candidate when the part's first byte stands there,
// and its last one (the sixteenth of a longer part) where that would have to stand.
class TextSearch::Scan {
public:
    Scan(std::string_view part, std::string_view text)
        : part_(part), text_(text), reach_(std::min(part.size(), kBlock) - 1),
          first_(filledWith(static_cast<unsigned char>(part.front()))),
          last_(filledWith(static_cast<unsigned char>(part[reach_]))),
          firstCase_(filledWith(caseBit(part.front()))), lastCase_(filledWith(caseBit(part[reach_]))),
          effort_(kMostEffort * text.size()) {}

    // The part is not longer than the text.
    bool run() {
        const std::size_t looked = kBlock + reach_; // bytes for one step
        if (text_.size() < looked) {
            std::array<char, 2 * kBlock> padded{};
            text_.copy(padded.data(), text_.size());
            return isAt(padded.data(), 0);
        }
        const std::size_t end = text_.size() - looked;
        for (std::size_t at = 0;; at = std::min(at + kBlock, end)) {
            if (isAt(text_.data() + at, at))
                return true;
            if (at == end || effort_ == 0)
                return false;
        }
    }

    bool sawOnlyAscii() const { return !hasAny(seen_, 0x8080808080808080u); }
    // Too many candidates were none: the rest has to be searched in another way.
    bool gaveUp() const { return effort_ == 0; }

private:
    static constexpr std::size_t kMostEffort = 4;

    // Whether the part stands at one of the sixteen places from `bytes` on, which are those of the text from
    // `at` on.
    bool isAt(const char* bytes, std::size_t at) {
        const Block start = load(bytes);
        const Block finish = load(bytes + reach_);
        seen_ |= start | finish;
        const auto hits =
            std::bit_cast<Block>(((start | firstCase_) == first_) & ((finish | lastCase_) == last_));
        if (!hasAny(hits, ~std::uint64_t{0}))
            return false;
        for (std::size_t i = 0; i < kBlock; ++i)
            if (hits[i] != 0 && standsAt(at + i))
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
    const Block first_;
    const Block last_;
    const Block firstCase_;
    const Block lastCase_;
    Block seen_{};
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
