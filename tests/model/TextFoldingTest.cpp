// What the table of characters gives is what ICU gives for the whole text, whatever stands beside what.
#include "model/TextFolding.h"

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

std::string byICU(const std::string& text) {
    std::string folded;
    appendFoldedByICU(folded, text);
    return folded;
}

class TextFoldingTest : public testing::Test {
protected:
    std::string folded(const std::string& text) {
        std::string result;
        folder.appendFolded(result, text);
        return result;
    }
    TextFolder folder;
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
    folder.appendFolded(text, "É");
    folder.appendFolded(text, "カ\xE3\x82\x99");
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

TEST_F(TextFoldingTest, randomTextsAreAsICUHasThem) {
    // Scripts whose characters act on each other, and marks of every class.
    const std::vector<std::pair<char32_t, char32_t>> ranges = {
        {0x20, 0x17F},    {0x1A0, 0x24F},     {0x300, 0x36F},     {0x370, 0x52F},    {0x591, 0x5F4},
        {0x620, 0x65F},   {0x900, 0x9FF},     {0xA00, 0xDFF},     {0xE00, 0xFFF},    {0x1000, 0x11FF},
        {0x1B00, 0x1B7F}, {0x1E00, 0x1FFF},   {0x20D0, 0x212F},   {0x3040, 0x30FF},  {0xAC00, 0xAD00},
        {0xFB00, 0xFB4F}, {0x11080, 0x110FF}, {0x1D15E, 0x1D1A0}, {0x1F300, 0x1F5FF}};
    std::mt19937 random(3);
    for (int round = 0; round < 60000; ++round) {
        const auto& main = ranges[random() % ranges.size()];
        std::string text;
        for (std::size_t length = 1 + random() % 7; length > 0; --length) {
            const auto& range = random() % 3 == 0 ? ranges[random() % ranges.size()] : main;
            appendUtf8(text, range.first + random() % (range.second - range.first + 1));
        }
        ASSERT_EQ(folded(text), byICU(text)) << round;
    }
}

} // namespace
} // namespace tabulon
