// The bytes before a certain one: where they end and what is among them, in one go.
#pragma once

#include "base/ByteBlock.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tabulon {

/// Sixty-four bytes are looked at in one step, so that most runs take the same one or two: where the length
/// of each decides how often a loop goes round, guessing that wrong takes longer than looking.
class ByteWindow {
public:
    static constexpr std::ptrdiff_t kSize = 64;

    /// All of the bytes must be readable as long as the window is used.
    explicit ByteWindow(const char* bytes) : bytes_(bytes) {}

    /// Where one of `Bytes` stands, that of the first byte lowest.
    template <char... Bytes>
    std::uint64_t placesOf() const {
        std::uint64_t places = 0;
        for (std::size_t i = 0; i < kSize; i += kByteBlockSize) {
            const ByteBlock block = loadBlock(bytes_ + i);
            places |= std::uint64_t{highBits((equalBytes(block, filledBlock(Bytes)) | ...))} << i;
        }
        return places;
    }

private:
    const char* bytes_;
};

struct ByteRun {
    const char* begin = nullptr;
    /// Where the byte stands that ends the run, or null where it was not found.
    const char* end = nullptr;
    /// Whether an "&" stands before it.
    bool hasReferences = false;
    /// Whether one of the marks stands before it.
    bool isMarked = false;

    /// Those of the run. Requires an end.
    std::string_view bytes() const { return {begin, end}; }
};

/// The run from `from` to the first `Stop`, marked when one of `Marks` is in it. What is so near to `limit`,
/// the end of all bytes, that no window fits before that is not looked at.
template <char Stop, char... Marks>
ByteRun runTo(const char* from, const char* limit) {
    std::uint64_t references = 0;
    std::uint64_t marks = 0;
    for (const char* at = from; limit - at >= ByteWindow::kSize; at += ByteWindow::kSize) {
        const ByteWindow window(at);
        const std::uint64_t stops = window.placesOf<Stop>();
        const std::uint64_t before = stops == 0 ? ~std::uint64_t{0} : (stops & -stops) - 1;
        references |= window.placesOf<'&'>() & before;
        marks |= window.placesOf<Marks...>() & before;
        if (stops != 0)
            return {from, at + std::countr_zero(stops), references != 0, marks != 0};
    }
    return {from};
}

} // namespace tabulon
