// Texts, label colours and menu keys as the windows show them.
#include "ui/Strings.h"

#include "ui/MainMenuBar.h"

#include <gtest/gtest.h>

#include <QKeySequence>

namespace tabulon {
namespace {

TEST(StringsTest, LineHasNoBreaksAndNoEndlessLength) {
    EXPECT_EQ(oneLine("a\nb\tc\x01"
                      "d"),
              "a b c d");
    EXPECT_LE(oneLine(std::string(1000000, 'x')).size(), 4000);
}

TEST(StringsTest, LineForARoomEndsInAnEllipsisAtAWholeCharacterWhenItIsFarTooLong) {
    EXPECT_EQ(oneLine("short", 10), "short");
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "\u9EBB";
    for (int width = 100; width < 104; ++width) {
        const QString line = oneLine(text, width);
        EXPECT_LT(line.size(), 100);
        EXPECT_GT(line.size(), 50);
        EXPECT_TRUE(line.endsWith(QChar(0x2026)));
        EXPECT_FALSE(line.contains(QChar::ReplacementCharacter));
    }
}

TEST(StringsTest, ToolTipIsNeverMarkup) {
    EXPECT_TRUE(toolTipText("<b>bold</b>").contains("&lt;b&gt;"));
    EXPECT_TRUE(toolTipText("").isEmpty());
}

TEST(StringsTest, LabelColoursStayThemselvesOnLightGround) {
    for (std::uint8_t label = 1; label < 12; ++label) {
        const LabelColor color = labelColor(label);
        const QColor shown = readableColor(color, Qt::white, QColor(0x20, 0x20, 0x20));
        EXPECT_NEAR(shown.redF(), color.red, 0.005);
        EXPECT_NEAR(shown.greenF(), color.green, 0.005);
        EXPECT_NEAR(shown.blueF(), color.blue, 0.005);
    }
}

TEST(StringsTest, ToolTipOfShortLinesKeepsThem) {
    EXPECT_TRUE(toolTipText("Tags: one, two\nand more").contains("white-space:pre\""));
    EXPECT_TRUE(toolTipText("short\n" + std::string(100, 'x')).contains("white-space:pre-wrap\""));
}

TEST(StringsTest, YellowAndCyanGetAGroundOnWhiteAndNoOtherLabelDoes) {
    for (std::uint8_t label = 1; label <= 12; ++label) {
        const bool lost = label == 10 || label == 11;
        EXPECT_EQ(groundForLabel(labelColor(label), Qt::white).has_value(), lost) << int{label};
        EXPECT_FALSE(groundForLabel(labelColor(label), QColor(0x1f, 0x22, 0x25))) << int{label};
    }
}

TEST(StringsTest, LabelColoursAreLightenedOnDarkGround) {
    const QColor base(0x1f, 0x22, 0x25);
    for (std::uint8_t label = 1; label < 12; ++label)
        EXPECT_GT(qGray(readableColor(labelColor(label), base, Qt::white).rgb()), 100) << int{label};
    EXPECT_EQ(readableColor(labelColor(11), base, Qt::white), QColor(Qt::cyan)) << "bright enough as it is";
}

TEST(StringsTest, TheKeptPlaceOfAWindowIsReadAgain) {
    const QRect place(-20, 30, 400, 500);
    EXPECT_EQ(frameText(place), "-20 30 400 500");
    EXPECT_EQ(frameIn(frameText(place)), place);
    for (const char* text : {"", "1 2 3", "1 2 0 4", "1 2 3 -4", "a b c d", "1 2 99999999999 4"})
        EXPECT_EQ(frameIn(text), std::nullopt) << text;
}

TEST(StringsTest, BlackStandsForTheOrdinaryTextColour) {
    EXPECT_EQ(readableColor(labelColor(12), Qt::black, Qt::white), QColor(Qt::white));
}

TEST(StringsTest, MenuKeysAreThoseOfTheDesktop) {
    EXPECT_EQ(keySequence(MenuItem{.keyEquivalent = "s"}), QKeySequence("Ctrl+S"));
    EXPECT_EQ(keySequence(MenuItem{.keyEquivalent = "S"}), QKeySequence("Ctrl+Shift+S"));
    EXPECT_EQ(keySequence(MenuItem{.keyEquivalent = "Right"}), QKeySequence("Ctrl+Right"));
    EXPECT_EQ(keySequence(MenuItem{.keyEquivalent = "Left", .modifiers = {.shift = true}}),
              QKeySequence("Ctrl+Shift+Left"));
    EXPECT_EQ(keySequence(MenuItem{.keyEquivalent = "+"}), QKeySequence("Ctrl++"));
    EXPECT_EQ(keySequence(MenuItem{.keyEquivalent = "i", .modifiers = {.option = true}}),
              QKeySequence("Ctrl+Alt+I"));
    EXPECT_TRUE(keySequence(MenuItem{}).isEmpty());
}

} // namespace
} // namespace tabulon
