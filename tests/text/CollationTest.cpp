// Tests the order, sort keys and "standard contains" in several languages and with unusual locale names.
#include "text/Collation.h"

#include "tests/ProcessorTime.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <vector>

namespace tabulon {
namespace {

using namespace std::string_literals;

std::string signOf(std::weak_ordering order) {
    return order < 0 ? "<" : order > 0 ? ">" : "=";
}

std::string compare(const Collation& collation, std::string_view a, std::string_view b) {
    return signOf(collation.compareIgnoringCase(a, b));
}

std::vector<std::string> sorted(const Collation& collation, std::vector<std::string> texts) {
    std::stable_sort(texts.begin(), texts.end(), [&](const std::string& a, const std::string& b) {
        return collation.compareIgnoringCase(a, b) < 0;
    });
    return texts;
}

TEST(Collation, caseDoesNotCount) {
    const Collation english("en_US");
    EXPECT_EQ(compare(english, "name", "NAME"), "=");
    EXPECT_EQ(compare(english, "Éa", "éA"), "=");
    EXPECT_EQ(compare(english, "apple", "Banana"), "<");
    EXPECT_EQ(compare(english, "Banana", "apple"), ">");
}

TEST(Collation, accentsCountAfterTheLetters) {
    const Collation english("en_US");
    EXPECT_EQ(compare(english, "resume", "résumé"), "<");
    EXPECT_EQ(compare(english, "résumé", "resumes"), "<");
    EXPECT_EQ(compare(english, "é", "e\u0301"), "=") << "composed and decomposed are the same letter";
}

TEST(Collation, emptyAndNullTextsComeFirst) {
    const Collation english("en_US");
    EXPECT_EQ(compare(english, "", "a"), "<");
    EXPECT_EQ(compare(english, {}, ""), "=");
    EXPECT_LT(english.sortKey(""), english.sortKey(" "));
    EXPECT_EQ(english.sortKey({}), english.sortKey(""));
}

TEST(Collation, theLanguageDecidesTheOrder) {
    const std::vector<std::string> words = {"zebra", "öl", "oben"};
    EXPECT_EQ(sorted(Collation("de_DE"), words), (std::vector<std::string>{"oben", "öl", "zebra"}));
    EXPECT_EQ(sorted(Collation("sv_SE"), words), (std::vector<std::string>{"oben", "zebra", "öl"}));
}

TEST(Collation, charsetsAndModifiersOfALocaleAreNoPartOfItsLanguage) {
    for (const char* locale : {"sv", "sv_SE.UTF-8", "sv_SE.utf8", "sv_SE.ISO-8859-1", "sv_SE@euro", "sv-SE"})
        EXPECT_EQ(compare(Collation(locale), "zebra", "öl"), "<") << locale;
    EXPECT_EQ(compare(Collation("de_DE.UTF-8"), "zebra", "öl"), ">");
    EXPECT_EQ(compare(Collation("de@collation=phonebook"), "öz", "of"), "<") << "ö is oe in phone books";
    EXPECT_EQ(compare(Collation("de"), "öz", "of"), ">");
}

TEST(Collation, englishOrder) {
    const std::vector<std::string> words = {"Zebra", "öl", "apple", "_x", "Banana"};
    EXPECT_EQ(sorted(Collation("en_US"), words),
              (std::vector<std::string>{"_x", "apple", "Banana", "öl", "Zebra"}));
}

TEST(Collation, anUnknownLocaleHasTheRootOrder) {
    for (const std::string& locale : {"xx_YY"s, "nonsense"s, "..."s, "_"s, std::string(1000, 'x'), "a\0b"s}) {
        EXPECT_EQ(compare(Collation(locale), "a", "B"), "<") << locale;
        EXPECT_EQ(compare(Collation(locale), "a", "A"), "=") << locale;
    }
}

TEST(Collation, sortKeysHaveTheOrderOfTheComparison) {
    const std::vector<std::string> texts = {"",
                                            " ",
                                            "a",
                                            "A",
                                            "ab",
                                            "B",
                                            "á",
                                            "ä",
                                            "aa",
                                            "-",
                                            "10",
                                            "9",
                                            "ß",
                                            "ss",
                                            "straße",
                                            "STRASSE",
                                            "日本",
                                            "日",
                                            "é",
                                            "e\u0301",
                                            "\U0001F516",
                                            "\x01",
                                            "a\0b"s,
                                            "bad \xFF",
                                            "Ω",
                                            "я",
                                            std::string(3000, 'x'),
                                            std::string(3001, 'X')};
    for (const char* locale : {"en", "de", "sv", "ja"}) {
        const Collation collation(locale);
        for (const std::string& a : texts)
            for (const std::string& b : texts)
                EXPECT_EQ(signOf(collation.sortKey(a) <=> collation.sortKey(b)), compare(collation, a, b))
                    << locale << ": " << a << " and " << b;
    }
}

TEST(Collation, longTextsHaveWholeSortKeys) {
    const Collation english("en");
    const std::string text(100000, 'a');
    EXPECT_EQ(english.sortKey(text), english.sortKey(std::string(100000, 'A')));
    EXPECT_LT(english.sortKey(text + 'a'), english.sortKey(text + 'b'));
    EXPECT_EQ(compare(english, text + 'a', text + 'b'), "<");
}

TEST(StandardContains, ignoresCase) {
    const Collation english("en");
    EXPECT_TRUE(english.standardContains("The Weather Report", "weather"));
    EXPECT_TRUE(english.standardContains("the weather report", "WEATHER"));
    EXPECT_FALSE(english.standardContains("The Weather Report", "wheather"));
    EXPECT_TRUE(english.standardContains("Привет МИР", "мир"));
    EXPECT_TRUE(english.standardContains("Straße", "STRASSE"));
}

TEST(StandardContains, ignoresDiacritics) {
    const Collation english("en");
    EXPECT_TRUE(english.standardContains("Crème Brûlée", "creme brulee"));
    EXPECT_TRUE(english.standardContains("creme brulee", "CRÈME"));
    EXPECT_TRUE(english.standardContains("e\u0301le\u0300ve", "ÉLÈVE"));
    EXPECT_TRUE(english.standardContains("Ελλάδα", "ελλαδα"));
    EXPECT_TRUE(english.standardContains("İstanbul", "istanbul"));
    EXPECT_TRUE(Collation("sv_SE").standardContains("Ångström", "angstrom")) << "whatever the language";
}

TEST(StandardContains, lettersAreNotTakenForDiacritics) {
    const Collation japanese("ja");
    EXPECT_FALSE(japanese.standardContains("がくせい", "かくせい")) << "voicing makes another letter";
    EXPECT_TRUE(japanese.standardContains("か\u3099くせい", "がくせい"));
    EXPECT_FALSE(japanese.standardContains("각", "가")) << "a syllable is one letter";
    EXPECT_FALSE(japanese.standardContains("कि", "की")) << "vowel signs count";
    EXPECT_FALSE(japanese.standardContains("søk", "sok")) << "ø is no o with a mark";
}

TEST(StandardContains, theEmptyTextIsInEverything) {
    const Collation english("en");
    EXPECT_TRUE(english.standardContains("text", ""));
    EXPECT_TRUE(english.standardContains("", ""));
    EXPECT_TRUE(english.standardContains(std::string_view(), std::string_view()));
    EXPECT_FALSE(english.standardContains("", "x"));
    EXPECT_FALSE(english.standardContains({}, "x"));
}

TEST(StandardContains, controlCharactersAndMalformedBytesCount) {
    const Collation english("en");
    EXPECT_FALSE(english.standardContains("text", "\x01"));
    EXPECT_TRUE(english.standardContains("a\0B"s, "\0b"s));
    EXPECT_TRUE(english.standardContains("bad \xFF byte", "BYTE"));
    EXPECT_FALSE(english.standardContains("text", "\xFF"));
}

TEST(StandardContains, asksForAnotherPartEachTime) {
    const Collation english("en");
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(english.standardContains("Één", "een"));
        EXPECT_FALSE(english.standardContains("Één", "twee"));
        EXPECT_TRUE(english.standardContains("TWEE", "twee"));
        EXPECT_TRUE(english.standardContains("twee", ""));
    }
}

TEST(StandardMatch, isThePieceAsItStands) {
    const Collation english("en");
    EXPECT_EQ(english.standardMatch("a hit in the note", "HIT"), "hit");
    EXPECT_EQ(english.standardMatch("my Résumé, old", "resume"), "Résumé");
    EXPECT_EQ(english.standardMatch("my Re\u0301sume\u0301, old", "RÉSUMÉ"), "Re\u0301sume\u0301");
    EXPECT_EQ(english.standardMatch("é e", "e"), "é") << "the first place";
    EXPECT_EQ(english.standardMatch("Die Straße", "strasse"), "Straße");
    EXPECT_EQ(english.standardMatch("Привет МИР", "мир"), "МИР");
    EXPECT_EQ(english.standardMatch("all of it", "all of it"), "all of it");
    EXPECT_EQ(english.standardMatch("nothing", "x"), "");
    EXPECT_EQ(english.standardMatch("", "x"), "");
    EXPECT_EQ(english.standardMatch("text", ""), "");
}

// The match is a view into the text, also where the bytes are malformed.
TEST(StandardMatch, isAPieceOfAnyText) {
    const Collation english("en");
    std::mt19937 random(7);
    const std::string_view pieces[] = {"a",  "B",  "é",  "e\u0301",  "ß",    "\u0301", "각",
                                       "ᄀ", "ᅡ", "が", "か\u3099", "\xFF", "\xC3",   "中"};
    for (int round = 0; round < 5000; ++round) {
        std::string text;
        for (std::size_t count = random() % 12; count > 0; --count)
            text += pieces[random() % std::size(pieces)];
        const std::string part(pieces[random() % std::size(pieces)]);
        const std::string_view match = english.standardMatch(text, part);
        if (!match.empty()) {
            EXPECT_GE(match.data(), text.data());
            EXPECT_LE(match.data() + match.size(), text.data() + text.size());
        }
        EXPECT_TRUE(match.empty() || english.standardContains(text, part)) << text;
    }
}

TEST(StandardContains, isLinearInHostileTexts) {
    const Collation english("en");
    const std::string text(1 << 20, 'a');
    const std::string part = std::string(1 << 19, 'a') + 'b';
    EXPECT_FALSE(english.standardContains(text, part)) << "a naive search takes minutes here";
    EXPECT_TRUE(english.standardContains(text + 'B', part));
}

TEST(CollationTurkish, theTwoLettersIAreDifferent) {
    const Collation english("en_US");
    for (const char* language : {"tr_TR", "tr", "az_AZ"}) {
        const Collation turkish(language);
        EXPECT_TRUE(turkish.standardContains("\u0130stanbul", "istanbul"));
        EXPECT_TRUE(turkish.standardContains("I\u0307STANBUL", "istanbul"));
        EXPECT_TRUE(turkish.standardContains("istanbul", "\u0130STANBUL"));
        EXPECT_TRUE(turkish.standardContains("KAPI", "kap\u0131"));
        EXPECT_TRUE(turkish.standardContains("kap\u0131", "KAPI"));
        EXPECT_TRUE(turkish.standardContains("Açık Kapı", "acık kapı"));
        EXPECT_FALSE(turkish.standardContains("KAPI", "kapi"));
        EXPECT_FALSE(turkish.standardContains("istanbul", "ISTANBUL"));
        EXPECT_EQ(turkish.standardMatch("Yeni KAPI var", "kap\u0131"), "KAPI");
        EXPECT_TRUE(turkish.standardContains("https://EXAMPLE.org/", "example"));
    }
    EXPECT_TRUE(english.standardContains("KAPI", "kapi"));
    EXPECT_TRUE(english.standardContains("\u0130stanbul", "istanbul"));
}

TEST(CollationMarks, longRunsOfThemTakeLinearTime) {
    const Collation collation("en_US");
    // Accents in the order that takes longest to sort, and marks that folding keeps: nuktas after viramas.
    for (const auto& [high, low] : {std::pair("\u0301", "\u0323"), std::pair("\u094D", "\u093C")}) {
        const auto seconds = [&](int marks) {
            std::string text = "e";
            for (int i = 0; i < marks; ++i)
                text += high;
            for (int i = 0; i < marks; ++i)
                text += low;
            const ProcessorTime time;
            EXPECT_FALSE(collation.standardContains(text, "x\u0301y"));
            return time.seconds();
        };
        seconds(1000);
        // The text is ten times as long. Quadratic time would be a hundred times as long.
        const double small = seconds(20000);
        EXPECT_LT(seconds(200000), 40 * small + 0.1);
    }
}

} // namespace
} // namespace tabulon
