// Tests that folding with the character table has the same result as folding of the whole text by ICU, for
// characters in any context.
#include "text/TextFolding.h"

#include "base/Ascii.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tabulon {
namespace {

void appendUtf8(std::string& text, char32_t character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        text += static_cast<char>(0x80 | ((character >> 12) & 0x3F));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

bool isCharacter(char32_t code) {
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// Returns `text` folded by ICU alone.
std::string byICU(const std::string& text) {
    std::string folded;
    appendFoldedByICU(folded, text);
    return folded;
}

// Returns `text` in lower case, with each run of bytes outside ASCII replaced by one byte 0x80.
std::string asciiOf(const std::string& text) {
    std::string result;
    for (const char byte : text)
        if (static_cast<unsigned char>(byte) < 0x80)
            result += ascii::lower(byte);
        else if (result.empty() || result.back() != '\x80')
            result += '\x80';
    return result;
}

class TextFoldingTest : public testing::Test {
protected:
    // Returns `text` folded with the character table.
    std::string folded(const std::string& text) {
        std::string result;
        folding.appendFolded(result, text);
        return result;
    }
    TextFolding folding;
};

TEST_F(TextFoldingTest, lettersLoseCaseAndDiacritics) {
    EXPECT_EQ(folded("AbC"), "abc");
    EXPECT_EQ(folded("Résumé"), "resume");
    EXPECT_EQ(folded("e\xCC\x81"), "e");
    EXPECT_EQ(folded("Straße"), "strasse");
    EXPECT_EQ(folded("Ελλάδα"), "ελλαδα");
    EXPECT_EQ(folded("ガ"), "ガ") << "a voicing mark is part of the letter";
    EXPECT_EQ(folded("カ\xE3\x82\x99"), "ガ");
    EXPECT_EQ(folded(""), "");
}

TEST_F(TextFoldingTest, isAppended) {
    std::string text = "before ";
    folding.appendFolded(text, "É");
    folding.appendFolded(text, "カ\xE3\x82\x99");
    EXPECT_EQ(text, "before eガ");
}

TEST_F(TextFoldingTest, brokenBytesAreLeftToICU) {
    for (const char* bytes : {"a\xFF", "\xC3", "\xED\xA0\x80x", "É\x80"})
        EXPECT_EQ(folded(bytes), byICU(bytes));
}

TEST_F(TextFoldingTest, everyCharacterBetweenLettersIsAsICUHasIt) {
    for (char32_t code = 1; code < 0x20000; ++code) {
        if (!isCharacter(code))
            continue;
        std::string text = "É";
        appendUtf8(text, code);
        text += "가e";
        ASSERT_EQ(folded(text), byICU(text)) << std::hex << static_cast<unsigned>(code);
    }
}

TEST_F(TextFoldingTest, textsOfOtherScriptsKeepFromAscii) {
    for (const char* text : {"Ёлка и Москва", "Ελλάδα", "天気予報 入門", "ガイド", "안내 역사", "שלום",
                             "دليل", "हिन्दी", "🔖 x", "ascii", ""})
        EXPECT_TRUE(folding.keepsFromAscii(text)) << text;
    for (const char* text : {"é", "Straße", "x\xCC\x81", "\xEF\xAC\x81", "\xE2\x84\xAA", "\xE2\x89\xA0", "ŉ"})
        EXPECT_FALSE(folding.keepsFromAscii(text)) << text;
}

TEST_F(TextFoldingTest, whatKeepsFromAsciiLeavesAsciiWhereItStands) {
    std::size_t kept = 0;
    for (char32_t code = 0x80; code < 0x20000; ++code) {
        if (!isCharacter(code))
            continue;
        std::string text = "a";
        appendUtf8(text, code);
        text += "B";
        if (folding.keepsFromAscii(text)) {
            ++kept;
            ASSERT_EQ(asciiOf(byICU(text)), asciiOf(text)) << std::hex << static_cast<unsigned>(code);
        }
    }
    EXPECT_GT(kept, 100000u);
}

TEST_F(TextFoldingTest, brokenBytesDoNotHideACharacter) {
    std::mt19937 random(4);
    std::size_t kept = 0;
    for (int round = 0; round < 200000; ++round) {
        std::string text;
        for (std::size_t length = 1 + random() % 6; length > 0; --length)
            text += "aB\x80\xA9\xC3\xCE\xD0\xE4\xE3\xF0\x9F\x96\xF5\xC1"[random() % 14];
        if (!folding.keepsFromAscii(text))
            continue;
        ++kept;
        ASSERT_EQ(asciiOf(byICU(text)), asciiOf(text)) << testing::PrintToString(text);
    }
    EXPECT_GT(kept, 2000u);
}

// Returns a text in scripts whose characters combine with each other, with marks of many combining classes.
std::string randomText(std::mt19937& random) {
    static const std::vector<std::pair<char32_t, char32_t>> ranges = {
        {0x20, 0x17F},    {0x1A0, 0x24F},     {0x300, 0x36F},     {0x370, 0x52F},    {0x591, 0x5F4},
        {0x620, 0x65F},   {0x900, 0x9FF},     {0xA00, 0xDFF},     {0xE00, 0xFFF},    {0x1000, 0x11FF},
        {0x1B00, 0x1B7F}, {0x1E00, 0x1FFF},   {0x20D0, 0x212F},   {0x3040, 0x30FF},  {0xAC00, 0xAD00},
        {0xFB00, 0xFB4F}, {0x11080, 0x110FF}, {0x1D15E, 0x1D1A0}, {0x1F300, 0x1F5FF}};
    const auto& main = ranges[random() % ranges.size()];
    std::string text;
    for (std::size_t length = 1 + random() % 7; length > 0; --length) {
        const auto& range = random() % 3 == 0 ? ranges[random() % ranges.size()] : main;
        appendUtf8(text, range.first + random() % (range.second - range.first + 1));
    }
    return text;
}

TEST_F(TextFoldingTest, randomTextsAreAsICUHasThem) {
    std::mt19937 random(3);
    for (int round = 0; round < 60000; ++round) {
        const std::string text = randomText(random);
        ASSERT_EQ(folded(text), byICU(text)) << round;
    }
}

TEST_F(TextFoldingTest, randomTextsThatKeepFromAsciiLeaveItWhereItStands) {
    std::mt19937 random(5);
    std::size_t kept = 0;
    for (int round = 0; round < 60000; ++round) {
        std::string text;
        for (std::size_t parts = 1 + random() % 3; parts > 0; --parts)
            text += randomText(random) + "aK="[random() % 3];
        if (!folding.keepsFromAscii(text))
            continue;
        ++kept;
        ASSERT_EQ(asciiOf(byICU(text)), asciiOf(text)) << testing::PrintToString(text);
    }
    EXPECT_GT(kept, 10000u);
}

} // namespace
} // namespace tabulon
