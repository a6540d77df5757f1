// Looking for one part in a text: letters of either case, other bytes, zero bytes, and agreement with a plain
// search.
#include "model/TextSearch.h"

#include "model/Ascii.h"
#include "model/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using namespace std::string_literals;

TEST(TextSearch, ignoresTheCaseOfTheText) {
    const TextSearch search("link7"s);
    EXPECT_EQ(search.inAscii("a LiNk7 of many"), true);
    EXPECT_EQ(search.inAscii("link7"), true);
    EXPECT_EQ(search.inAscii("LINK"), false);
    EXPECT_EQ(search.inAscii("link'"), false) << "' differs from 7 where letters differ in case";
    EXPECT_EQ(TextSearch("[x]"s).inAscii("{X}"), false) << "brackets and braces as well";
}

TEST(TextSearch, leavesTextsWithOtherBytesToTheCaller) {
    const TextSearch search("link"s);
    EXPECT_EQ(search.inAscii("caf\xC3\xA9"), std::nullopt);
    EXPECT_EQ(search.inAscii("link \xC3\xA9"), std::nullopt);
    EXPECT_EQ(search.inAscii("\xC3\xA9"), std::nullopt) << "shorter than the part";
    EXPECT_EQ(TextSearch().inAscii("\xC3\xA9"), std::nullopt);
    EXPECT_EQ(search.inAscii("link" + std::string(100, '-') + "\xC3\xA9"), std::nullopt);
}

TEST(TextSearch, findsTheEmptyPartEverywhere) {
    EXPECT_EQ(TextSearch().inAscii(""), true);
    EXPECT_EQ(TextSearch().inAscii("text"), true);
    EXPECT_TRUE(TextSearch().inSmallLetters(""));
}

// The padding of a short text is no part of it.
TEST(TextSearch, takesZeroBytesAsBytes) {
    EXPECT_EQ(TextSearch("a\0"s).inAscii("bca"), false);
    EXPECT_EQ(TextSearch("a\0"s).inAscii("bca\0"s), true);
    EXPECT_EQ(TextSearch("\0"s).inAscii("abc"), false);
}

// Few letters, so that most parts begin in many places and stand in some.
TEST(TextSearch, agreesWithAPlainSearch) {
    std::mt19937 random(20261122);
    const auto letters = [&random](std::string_view alphabet, std::size_t size) {
        std::string text;
        while (text.size() < size)
            text += alphabet[random() % alphabet.size()];
        return text;
    };
    std::size_t present = 0;
    for (int round = 0; round < 60000; ++round) {
        const std::string part = letters("ab7", random() % 24);
        std::string text = letters("abAB7'\0"s, random() % 90);
        if (random() % 2 == 0)
            text.insert(random() % (text.size() + 1), part);
        const bool expected = ascii::lowered(text).find(part) != std::string::npos;
        present += std::size_t{expected};
        ASSERT_EQ(TextSearch(part).inAscii(text), expected) << part << " in " << text;
        ASSERT_EQ(TextSearch(part).inSmallLetters(ascii::lowered(text)), expected) << part << " in " << text;
        if (text.empty())
            continue;
        text[random() % text.size()] = '\x80';
        ASSERT_EQ(TextSearch(part).inAscii(text), std::nullopt) << part << " in " << text;
    }
    EXPECT_GT(present, 20000u);
    EXPECT_LT(present, 50000u);
}

} // namespace
} // namespace tabulon
