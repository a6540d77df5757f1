// Sixteen bytes looked at in one step. What is looked for in them is the searcher's affair.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tabulon {

/// Sixteen bytes, or the answers to a question about each of them: all bits set for yes, none for no.
using ByteBlock = unsigned char __attribute__((vector_size(16)));

inline constexpr std::size_t kByteBlockSize = sizeof(ByteBlock);

/// The sixteen bytes from `bytes` on; all of them must be readable.
inline ByteBlock loadBlock(const char* bytes) {
    ByteBlock block;
    std::memcpy(&block, bytes, kByteBlockSize);
    return block;
}

inline ByteBlock filledBlock(char byte) {
    return ByteBlock{} + static_cast<unsigned char>(byte);
}

/// For each byte whether it is the same in both.
inline ByteBlock equalBytes(ByteBlock a, ByteBlock b) {
    return std::bit_cast<ByteBlock>(a == b);
}

/// The highest bit of each byte, that of the first one lowest: which answers are yes, which bytes are not
/// ASCII.
inline std::uint32_t highBits(ByteBlock block) {
#if defined(__SSE2__)
    return static_cast<std::uint32_t>(_mm_movemask_epi8(std::bit_cast<__m128i>(block)));
#else
    static_assert(std::endian::native == std::endian::little);
    const auto gathered = [](std::uint64_t half) { // by one multiplication, as its bits meet in the top byte
        return static_cast<std::uint32_t>((half >> 7 & 0x0101010101010101u) * 0x0102040810204080u >> 56);
    };
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(block);
    return gathered(halves[0]) | gathered(halves[1]) << 8;
#endif
}

} // namespace tabulon
