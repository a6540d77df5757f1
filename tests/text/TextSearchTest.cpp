// Tests the search for one text in many: case, bytes outside ASCII, zero bytes, and the same results as
// `std::string::find`.
#include "text/TextSearch.h"

#include "base/Ascii.h"
#include "base/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using namespace std::string_literals;

TEST(TextSearch, ignoresTheCaseOfTheText) {
    const TextSearch search("link7"s);
    EXPECT_EQ(search.isIn("a LiNk7 of many"), true);
    EXPECT_EQ(search.isIn("link7"), true);
    EXPECT_EQ(search.isIn("LINK"), false);
    EXPECT_EQ(search.isIn("link'"), false) << "' differs from 7 where letters differ in case";
    EXPECT_EQ(TextSearch("[x]"s).isIn("{X}"), false) << "brackets and braces as well";
}

TEST(TextSearch, leavesTextsWithOtherBytesToTheCaller) {
    const TextSearch search("link"s);
    EXPECT_EQ(search.isIn("caf\xC3\xA9"), std::nullopt);
    EXPECT_EQ(search.isIn("\xC3\xA9"), std::nullopt) << "shorter than the part";
    EXPECT_EQ(search.isIn(std::string(100, '-') + "\xC3\xA9"), std::nullopt);
    EXPECT_EQ(TextSearch("\xC3\xA9"s).isIn("\xC3\xA9"), std::nullopt) << "what is behind it may change it";
    EXPECT_EQ(TextSearch("\xC3\xA9"s).isIn("e"), false);
}

TEST(TextSearch, knowsAPartOfAsciiWhereverItStands) {
    const TextSearch search("link"s);
    EXPECT_EQ(search.isIn("link" + std::string(100, '-') + "\xC3\xA9"), true);
    EXPECT_EQ(search.isIn("\xC3\xA9 LINK"), true);
    EXPECT_TRUE(search.isAscii());
    EXPECT_FALSE(TextSearch("l\xC3\xAFnk"s).isAscii());
}

TEST(TextSearch, findsTheEmptyPartEverywhere) {
    EXPECT_EQ(TextSearch().isIn(""), true);
    EXPECT_EQ(TextSearch().isIn("text"), true);
    EXPECT_EQ(TextSearch().isIn("\xC3\xA9"), true);
    EXPECT_TRUE(TextSearch().inSmallLetters(""));
}

// The zero bytes that pad a short text must not match.
TEST(TextSearch, takesZeroBytesAsBytes) {
    EXPECT_EQ(TextSearch("a\0"s).isIn("bca"), false);
    EXPECT_EQ(TextSearch("a\0"s).isIn("bca\0"s), true);
    EXPECT_EQ(TextSearch("\0"s).isIn("abc"), false);
}

// The alphabet is small, so that most parts match partly in many places, and some match whole.
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
        ASSERT_EQ(TextSearch(part).isIn(text), expected) << part << " in " << text;
        ASSERT_EQ(TextSearch(part).inSmallLetters(ascii::lowered(text)), expected) << part << " in " << text;
        if (text.empty())
            continue;
        text[random() % text.size()] = '\x80';
        const bool stays = ascii::lowered(text).find(part) != std::string::npos;
        ASSERT_EQ(TextSearch(part).isIn(text), stays ? std::optional(true) : std::nullopt)
            << part << " in " << text;
    }
    EXPECT_GT(present, 20000u);
    EXPECT_LT(present, 50000u);
}

} // namespace
} // namespace tabulon
