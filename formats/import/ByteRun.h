// A run of bytes up to a given byte: where it ends, and whether given bytes are in it, found in one pass.
#pragma once

#include "base/ByteBlock.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tabulon {

/// Sixty-four bytes that are examined in one step. Most runs then take one or two steps: a branch that
/// depends on the length of each run would be mispredicted often, which costs more than the examination.
class ByteWindow {
public:
    static constexpr std::ptrdiff_t kSize = 64;

    /// Requires: `kSize` bytes at `bytes` that stay readable while the window is used.
    explicit ByteWindow(const char* bytes) : bytes_(bytes) {}

    /// Returns a mask with a bit for each byte that is one of `Bytes`; the lowest bit is for the first byte.
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
    /// The position of the byte that ends the run, or `nullptr` where it was not found.
    const char* end = nullptr;
    /// Whether the run contains an "&".
    bool hasReferences = false;
    /// Whether the run contains one of the marks.
    bool isMarked = false;

    /// Returns the bytes of the run. Requires: `end` is not `nullptr`.
    std::string_view bytes() const { return {begin, end}; }
};

/// Returns the run from `from` to the first `Stop`, marked when it contains one of `Marks`. `limit` is the
/// end of all bytes. Only whole windows are examined: `end` is `nullptr` where the first `Stop` is in the
/// last incomplete window before `limit`, or missing. Linear.
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
