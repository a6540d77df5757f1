// Tests the UTF-8 functions: validation, replacement of malformed parts, encoding of characters, character
// boundaries.
#include "base/Utf8.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

constexpr char32_t kBorders[] = {0,      0x7F,   0x80,   0x7FF,   0x800,   0xD7FF,
                                 0xE000, 0xFFFD, 0xFFFF, 0x10000, 0x10FFFF};

TEST(Utf8, asciiAndValidity) {
    EXPECT_TRUE(isAscii(""));
    EXPECT_TRUE(isAscii(std::string(100, 'x')));
    EXPECT_FALSE(isAscii("x0123456789012345678901234567890123456789 ü"));
    EXPECT_TRUE(isValidUtf8(""));
    EXPECT_TRUE(isValidUtf8("0123456789 ü 日本"));
    EXPECT_FALSE(isValidUtf8("0123456789 \xFC"));
}

TEST(Utf8, aByteAboveAsciiIsFoundAtEveryPlace) {
    for (std::size_t size = 1; size < 40; ++size) {
        for (std::size_t place = 0; place < size; ++place) {
            std::string bytes(size, 'x');
            bytes[place] = '\x80';
            EXPECT_FALSE(isAscii(bytes)) << size << ' ' << place;
            EXPECT_FALSE(isValidUtf8(bytes)) << size << ' ' << place;
        }
    }
}

TEST(Utf8, overlongFormsSurrogatesAndNumbersBeyondTheLastAreNotValid) {
    for (const char* bytes : {"\xC0\xAF", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
                              "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE3\x81", "\x80"})
        EXPECT_FALSE(isValidUtf8(bytes)) << testing::PrintToString(bytes);
}

TEST(Utf8, malformedPartsAreReplacedOneByOne) {
    EXPECT_EQ(decodeUtf8Leniently(""), "");
    EXPECT_EQ(decodeUtf8Leniently("ü日\U0001F600"), "ü日\U0001F600");
    EXPECT_EQ(decodeUtf8Leniently("\xE3\x81"
                                  "a"),
              "\uFFFDa");
    EXPECT_EQ(decodeUtf8Leniently("\xF0\x9F\x98"), "\uFFFD");
    EXPECT_EQ(decodeUtf8Leniently("\xC0\xAF"), "\uFFFD\uFFFD");
    EXPECT_EQ(decodeUtf8Leniently("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8, charactersAtTheBordersOfEachLengthGoThereAndBack) {
    std::string all;
    for (const char32_t character : kBorders) {
        const utf8::Encoded bytes = utf8::encoded(character);
        EXPECT_TRUE(isValidUtf8(bytes.view())) << static_cast<std::uint32_t>(character);
        EXPECT_EQ(bytes.size, character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4);
        utf8::append(all, character);
    }
    std::size_t position = 0;
    for (const char32_t character : kBorders)
        EXPECT_EQ(utf8::next(all, position), character);
    EXPECT_EQ(position, all.size());
}

// Every lead byte with every second byte, and bytes at the borders after them. ICU decides what is valid.
TEST(Utf8, decodesExactlyTheWellFormedSequences) {
    const std::string borders = {'a', '\x7F', '\x80', '\x8F', '\x90', '\x9F', '\xA0', '\xBF', '\xC0', '\xFF'};
    std::size_t decoded = 0;
    const auto check = [&](const std::string& bytes) {
        const utf8::Decoded found = utf8::decodedAt(bytes, 0);
        std::size_t size = 1;
        while (size <= bytes.size() && !isValidUtf8(bytes.substr(0, size)))
            ++size;
        ASSERT_EQ(found.size, size > bytes.size() ? 0 : size) << testing::PrintToString(bytes);
        if (found.size > 0) {
            ASSERT_EQ(utf8::encoded(found.character).view(), bytes.substr(0, size));
        }
        decoded += found.size > 1 ? 1 : 0;
    };
    for (int lead = 0; lead < 256; ++lead)
        for (int second = 0; second < 256; ++second) {
            const std::string two = {static_cast<char>(lead), static_cast<char>(second)};
            check(two.substr(0, 1));
            check(two);
            for (const char third : borders) {
                check(two + third);
                for (const char fourth : borders)
                    check(two + third + fourth);
            }
        }
    EXPECT_GT(decoded, 100000u);
}

TEST(Utf8, malformedPartsAreReplacedInTheSameWayOneByOne) {
    const std::string text = "a\xE3\x81z\xC0\xAFü\xF0\x9F\x98\xED\xA0\x80\U0001F600\xE6\x97";
    std::string read;
    for (std::size_t position = 0; position < text.size();)
        utf8::append(read, utf8::nextLenient(text, position));
    EXPECT_EQ(read, decodeUtf8Leniently(text));
    EXPECT_EQ(read, "a\uFFFDz\uFFFD\uFFFDü\uFFFD\uFFFD\uFFFD\uFFFD\U0001F600\uFFFD");
}

TEST(Utf8, theBytesOfACharacter) {
    EXPECT_EQ(utf8::encoded(U'\u00FC').view(), "\xC3\xBC");
    EXPECT_EQ(utf8::encoded(U'\u65E5').view(), "\xE6\x97\xA5");
    EXPECT_EQ(utf8::encoded(U'\U0001F600').view(), "\xF0\x9F\x98\x80");
}

TEST(Utf8, aBeginningNeverEndsInsideACharacter) {
    const std::string text = "aü日\U0001F600";
    const std::size_t expected[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10};
    for (std::size_t limit = 0; limit < std::size(expected); ++limit)
        EXPECT_EQ(utf8::prefix(text, limit).size(), expected[limit]) << limit;
    EXPECT_EQ(utf8::prefix("", 0), "");
    EXPECT_EQ(utf8::prefix("\x80\x80\x80", 2), "") << "no character begins";
}

} // namespace
} // namespace tabulon
