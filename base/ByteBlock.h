// Operations on sixteen bytes at a time. The algorithms that use them are in text/ and in the readers.
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

/// Sixteen bytes, or the results of a comparison of each of them: 0xFF for true, 0 for false. Results are
/// combined by the operators | & ~ of the compiler's vectors. Element 0 is the first byte in memory.
using ByteBlock = unsigned char __attribute__((vector_size(16)));

/// The size of a block in bytes. 16 on every machine, also without SSE2.
inline constexpr std::size_t kByteBlockSize = sizeof(ByteBlock);

/// Returns the sixteen bytes from `bytes` on, at any alignment. Requires: all sixteen are readable. The bytes
/// are copied, so the block stays valid without them.
inline ByteBlock loadBlock(const char* bytes) {
    ByteBlock block;
    std::memcpy(&block, bytes, kByteBlockSize);
    return block;
}

/// Returns a block in which every byte is `byte`, for comparisons.
inline ByteBlock filledBlock(char byte) {
    return ByteBlock{} + static_cast<unsigned char>(byte);
}

/// Returns 0xFF at each position where `a` and `b` have the same byte, 0 at the others. The case of letters
/// counts.
inline ByteBlock equalBytes(ByteBlock a, ByteBlock b) {
    return std::bit_cast<ByteBlock>(a == b);
}

/// Returns the highest bit of each byte; that of the first byte becomes bit 0. Of a comparison these are the
/// positions where it is true, of a text the bytes that are not ASCII. Bits 16 to 31 are 0. So
/// `std::countr_zero` of the result is the first of these positions, if there is one.
inline std::uint32_t highBits(ByteBlock block) {
#if defined(__SSE2__)
    return static_cast<std::uint32_t>(_mm_movemask_epi8(std::bit_cast<__m128i>(block)));
#else
    static_assert(std::endian::native == std::endian::little);
    const auto gathered = [](std::uint64_t half) { // the product has the eight bits in its top byte
        return static_cast<std::uint32_t>((half >> 7 & 0x0101010101010101u) * 0x0102040810204080u >> 56);
    };
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(block);
    return gathered(halves[0]) | gathered(halves[1]) << 8;
#endif
}

} // namespace tabulon
