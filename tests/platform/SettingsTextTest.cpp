// The text of a settings file: the values that are read, the lines that are preserved, the lines that are
// invalid.
#include "platform/linux/SettingsText.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using namespace std::string_literals;

std::string valueIn(std::string_view file, const char* key = "k") {
    const SettingsText text(file);
    const auto found = text.values().find(key);
    return found == text.values().end() ? "(none)" : found->second;
}

TEST(SettingsText, valuesAreReadAsPeopleWriteThem) {
    EXPECT_EQ(valueIn("k=YES\n"), "YES");
    EXPECT_EQ(valueIn("  k  =  two words \t\n"), "two words");
    EXPECT_EQ(valueIn("k=YES"), "YES") << "the last line needs no end";
    EXPECT_EQ(valueIn("k=a=b"), "a=b");
    EXPECT_EQ(valueIn("k="), "");
    EXPECT_EQ(valueIn("k=YES\r\nl=NO\r\n"), "YES");
    EXPECT_EQ(valueIn("\xEF\xBB\xBFk=YES\n"), "YES");
    EXPECT_EQ(valueIn("\xEF\xBB\xBF\xEF\xBB\xBFk=YES\n"), "YES");
    EXPECT_EQ(valueIn("k=1\nk=2\n"), "2") << "the last line counts";
    EXPECT_EQ(valueIn("NSWindow Frame my links = 1 2 3 4\n", "NSWindow Frame my links"), "1 2 3 4");
    EXPECT_EQ(valueIn("k=/home/Grüße/日本\n"), "/home/Grüße/日本");
}

TEST(SettingsText, quotesAndEscapes) {
    EXPECT_EQ(valueIn("k=\" kept \"\n"), " kept ");
    EXPECT_EQ(valueIn("k=\"\n"), "\"") << "one alone is a character";
    EXPECT_EQ(valueIn(R"(k=a\nb\tc\rd\\e\"f\x41\xff)"), "a\nb\tc\rd\\e\"fA\xFF");
    EXPECT_EQ(valueIn(R"(k=C:\dir \x4 \)"), R"(C:\dir \x4 \)") << "a backslash before anything else stays";
}

TEST(SettingsText, linesOfOtherSectionsAreNotOurs) {
    const std::string file = "k=1\n[Other]\nk=2\n[General]\nl=3\n[General]x\n";
    EXPECT_EQ(valueIn(file), "1");
    EXPECT_EQ(valueIn(file, "l"), "3");
    EXPECT_EQ(SettingsText(file).unreadableLines(), 1u);
}

TEST(SettingsText, changesLeaveEverythingElseAsItStands) {
    const std::string file = "# my settings\r\n\nUnknown = \"x, y\" \n  a=1\n\n[Theirs]\na=9\n;end\n";
    SettingsText text(file);
    text.set("a", "2");
    text.set("b", "3");
    EXPECT_EQ(text.bytes(), "# my settings\n\nUnknown = \"x, y\" \na=2\nb=3\n\n[Theirs]\na=9\n;end\n");
    text.remove("a");
    text.remove("missing");
    EXPECT_EQ(text.bytes(), "# my settings\n\nUnknown = \"x, y\" \nb=3\n\n[Theirs]\na=9\n;end\n");
    EXPECT_EQ(text.values(), (SettingsText::Values{{"Unknown", "x, y"}, {"b", "3"}}));
}

TEST(SettingsText, aNewFileHasASectionThatOtherProgramsKnow) {
    SettingsText text;
    EXPECT_EQ(text.bytes(), "");
    text.set("a", "1");
    EXPECT_EQ(text.bytes(), "[General]\na=1\n");
}

TEST(SettingsText, aKeyBeforeAForeignSectionStaysOurs) {
    SettingsText text("[Theirs]\na=9\n");
    text.set("a", "1");
    EXPECT_EQ(SettingsText(text.bytes()).values(), (SettingsText::Values{{"a", "1"}}));
}

TEST(SettingsText, settingOneOfTwoLinesLetsTheNewValueCount) {
    SettingsText text("a=1\na=2\n");
    text.set("a", "3");
    EXPECT_EQ(valueIn(text.bytes(), "a"), "3");
    text.remove("a");
    EXPECT_EQ(text.bytes(), "");
}

TEST(SettingsText, linesThatMakeNoSenseAreCountedAndLeftOut) {
    const SettingsText text("a=1\nno sense\n=no key\nb=\0zero\nc=\xFFnot utf-8\nd=\x1B[1m\ne=2\n"s);
    EXPECT_EQ(text.unreadableLines(), 5u);
    EXPECT_EQ(text.values(), (SettingsText::Values{{"a", "1"}, {"e", "2"}}));
    EXPECT_EQ(text.bytes(), "a=1\ne=2\n");
    EXPECT_EQ(SettingsText(std::string(1000, '\0')).unreadableLines(), 1u);
}

TEST(SettingsText, aDamagedSectionKeepsItsKeysApart) {
    for (const std::string& section :
         {"[Theirs"s, "[The\x01irs]"s, "[Their\xFFs]"s, "  [\0]"s, "["s, "[Theirs] x"s}) {
        SettingsText text("a=1\n" + section + "\na=9\nb=9\n[General]\nc=3\n");
        EXPECT_EQ(text.unreadableLines(), 1u) << section;
        EXPECT_EQ(text.values(), (SettingsText::Values{{"a", "1"}, {"c", "3"}})) << section;
        text.set("d", "4");
        text.remove("c");
        EXPECT_EQ(text.bytes(), "a=1\n[Damaged]\na=9\nb=9\n[General]\nd=4\n") << section;
        EXPECT_EQ(SettingsText(text.bytes()).values(), text.values()) << section;
    }
}

TEST(SettingsText, ourOwnSectionWhoseEndIsMissingStaysOurs) {
    SettingsText text("[Theirs]\na=9\n[General\na=1\n");
    EXPECT_EQ(text.unreadableLines(), 1u);
    EXPECT_EQ(text.values(), (SettingsText::Values{{"a", "1"}}));
    EXPECT_EQ(text.bytes(), "[Theirs]\na=9\n[General]\na=1\n");
}

// Returns keys and values of every kind of byte. The bytes that have a meaning in the file are frequent.
std::string randomText(std::mt19937& random) {
    static const std::string awkward = " \t\n\r\\\"'=#;[]x0\x7F\0äß\xFF"s;
    std::string text;
    for (auto count = random() % 12; count > 0; --count)
        text += random() % 3 == 0 ? static_cast<char>(random()) : awkward[random() % awkward.size()];
    return text;
}

TEST(SettingsText, everyKeyAndValueSurvivesTheFile) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        SettingsText text("# kept\n[Other]\nx=y\n");
        SettingsText::Values expected;
        for (int i = 0; i < 4; ++i) {
            const std::string key = "k" + randomText(random);
            const std::string other = randomText(random) + "k";
            const std::string value = randomText(random);
            text.set(key, value);
            text.set(other, value);
            expected[key] = expected[other] = value;
        }
        ASSERT_EQ(text.values(), expected);
        const SettingsText again(text.bytes());
        ASSERT_EQ(again.unreadableLines(), 0u) << text.bytes();
        ASSERT_EQ(again.values(), expected) << text.bytes();
        ASSERT_EQ(again.bytes(), text.bytes());
    }
}

TEST(SettingsText, whatIsLeftOfAnyBytesIsSoundAndMeansTheSame) {
    std::mt19937 random(11);
    for (int round = 0; round < 5000; ++round) {
        std::string bytes;
        for (auto count = random() % 8; count > 0; --count)
            bytes += randomText(random);
        const SettingsText text(bytes);
        const SettingsText again(text.bytes());
        ASSERT_EQ(again.unreadableLines(), 0u);
        ASSERT_EQ(again.values(), text.values());
    }
}

} // namespace
} // namespace tabulon
