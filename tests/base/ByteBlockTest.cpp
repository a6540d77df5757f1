// Tests that the operations on blocks of sixteen bytes have the same results as loops over the bytes.
#include "base/ByteBlock.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

TEST(ByteBlock, answersForEachByteWhetherItIsTheSame) {
    std::mt19937 random(1);
    for (int i = 0; i < 10000; ++i) {
        std::array<char, kByteBlockSize> bytes{};
        for (char& byte : bytes)
            byte = "ab\x80\xFF"[random() % 4];
        const char wanted = "ab\x80\xFF"[random() % 4];
        std::uint32_t same = 0;
        std::uint32_t high = 0;
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            same |= static_cast<std::uint32_t>(bytes[at] == wanted) << at;
            high |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at]) >= 0x80) << at;
        }
        const ByteBlock block = loadBlock(bytes.data());
        ASSERT_EQ(highBits(equalBytes(block, filledBlock(wanted))), same);
        ASSERT_EQ(highBits(block), high);
    }
}

} // namespace
} // namespace tabulon
