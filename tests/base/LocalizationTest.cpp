// Tests the English texts and the conversion of locale names to locale identifiers.
#include "base/EnglishTexts.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(EnglishTexts, keysHaveTheirTexts) {
    const EnglishLocalization texts;
    EXPECT_EQ(texts.text("Untitled"), "Untitled");
    EXPECT_EQ(texts.text("Favourites"), "Favourites");
    EXPECT_EQ(texts.text("DropBasket"), "Drop Basket");
    EXPECT_EQ(texts.text("WasteBasket"), "Waste Basket");
    EXPECT_EQ(texts.text("EmptyFolder"), "Untitled Folder");
    EXPECT_EQ(texts.text("NoSuchKey"), "NoSuchKey");
    EXPECT_EQ(englishText("Master"), std::nullopt);
    EXPECT_EQ(texts.format("TagsLabel", "a, b"), "Tags: a, b");
}

TEST(LocaleIdentifier, charsetsAndModifiersGo) {
    EXPECT_EQ(localeIdentifier("de_DE.UTF-8@euro"), "de_DE");
    EXPECT_EQ(localeIdentifier("sv_SE.ISO-8859-1"), "sv_SE");
    EXPECT_EQ(localeIdentifier("ca_ES@valencia"), "ca_ES");
    EXPECT_EQ(localeIdentifier("ja"), "ja");
}

TEST(LocaleIdentifier, keywordsStay) {
    EXPECT_EQ(localeIdentifier("de@collation=phonebook"), "de@collation=phonebook");
    EXPECT_EQ(localeIdentifier("de_DE.UTF-8@collation=phonebook"), "de_DE@collation=phonebook");
}

TEST(LocaleIdentifier, localesWithoutALanguageAreEnglish) {
    for (const char* name :
         {"", "C", "POSIX", "C.UTF-8", "C.utf8", "POSIX.UTF-8", "en_US_POSIX", "C@x", "@euro", "@a=b"})
        EXPECT_EQ(localeIdentifier(name), "en_US") << name;
}

TEST(LocaleIdentifier, everyWayIntoTheTextsGivesAnIdentifier) {
    EXPECT_EQ(EnglishLocalization().locale(), "en_US");
    EXPECT_EQ(EnglishLocalization("C").locale(), "en_US");
    EXPECT_EQ(EnglishLocalization("sv_SE.UTF-8").locale(), "sv_SE");
}

} // namespace
} // namespace tabulon
