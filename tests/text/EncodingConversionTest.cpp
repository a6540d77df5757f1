// Tests the conversion of bytes in other encodings to UTF-8.
#include "text/EncodingConversion.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(EncodingConversion, anyNameThatICUKnowsWillDo) {
    EXPECT_EQ(utf8FromEncoding("gr\xFC\xDF dich", "windows-1252"), "grüß dich");
    EXPECT_EQ(utf8FromEncoding("\x93\xFA\x96\x7B", "SJIS"), "日本");
    EXPECT_EQ(utf8FromEncoding(std::string_view("\x00h\x00i", 4), "UTF-16BE"), "hi");
    EXPECT_EQ(utf8FromEncoding("", "latin1"), "");
}

TEST(EncodingConversion, whatCannotBeDecodedIsAReplacementCharacter) {
    EXPECT_EQ(utf8FromEncoding("a\xFF!", "EUC-JP"), "a\uFFFD!") << "and no control character";
    EXPECT_EQ(utf8FromEncoding("a\xA0", "windows-1253"), "a\u00A0");
    EXPECT_EQ(utf8FromEncoding("a\xD2!", "windows-1253"), "a\uFFFD!");
    EXPECT_EQ(utf8FromEncoding("cut \x93", "SJIS"), "cut \uFFFD");
}

TEST(EncodingConversion, charactersOverTheEdgesOfThePiecesStayWhole) {
    std::string bytes;
    std::string expected;
    for (int i = 0; i < 20'000; ++i) {
        bytes += i % 7 == 0 ? "x" : "\x93\xFA";
        expected += i % 7 == 0 ? "x" : "日";
    }
    EXPECT_TRUE(utf8FromEncoding(bytes, "SJIS") == expected);
}

TEST(EncodingConversion, anUnknownNameIsNone) {
    EXPECT_EQ(utf8FromEncoding("a", "no such encoding"), std::nullopt);
    EXPECT_EQ(utf8FromEncoding("a", ""), std::nullopt) << "not the user's own";
}

} // namespace
} // namespace tabulon
