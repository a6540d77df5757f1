// Tests escaping and unescaping of XML entities, and the references that are not replaced.
#include "text/XmlEntities.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using namespace std::string_literals;

TEST(XmlEntities, escapeReplacesTheFiveCharactersAndNothingElse) {
    EXPECT_EQ(escapeXmlEntities("&<>\"'"), "&amp;&lt;&gt;&quot;&apos;");
    EXPECT_EQ(escapeXmlEntities("a&&b"), "a&amp;&amp;b");
    EXPECT_EQ(escapeXmlEntities(""), "");
    EXPECT_EQ(escapeXmlEntities("/\t\n\r é日本\U0001F516\0;#"s), "/\t\n\r é日本\U0001F516\0;#"s);
}

TEST(XmlEntities, escapeDoesNotSpareWhatIsEscapedAlready) {
    EXPECT_EQ(escapeXmlEntities("&amp;"), "&amp;amp;");
}

TEST(XmlEntities, appendXmlEscapedKeepsWhatWasThere) {
    std::string text = "<b>";
    appendXmlEscaped(text, "<");
    EXPECT_EQ(text, "<b>&lt;");
}

TEST(XmlEntities, unescapeUndoesTheFiveNames) {
    EXPECT_EQ(unescapeXmlEntities("&amp;&lt;&gt;&quot;&apos;"), "&<>\"'");
    EXPECT_EQ(unescapeXmlEntities("a &amp; b"), "a & b");
}

TEST(XmlEntities, unescapeUndoesOnce) {
    EXPECT_EQ(unescapeXmlEntities("&amp;lt;"), "&lt;");
    EXPECT_EQ(unescapeXmlEntities("&amp;#65;"), "&#65;");
    EXPECT_EQ(unescapeXmlEntities("&#38;lt;"), "&lt;");
}

TEST(XmlEntities, unescapeUndoesDecimalReferences) {
    EXPECT_EQ(unescapeXmlEntities("&#65;&#233;&#8364;&#128278;"), "Aé€\U0001F516");
    EXPECT_EQ(unescapeXmlEntities("&#39;&#1;&#1114111;"), "'\x01\U0010FFFF");
    EXPECT_EQ(unescapeXmlEntities("&#000000000000000000000000000065;"), "A");
}

TEST(XmlEntities, unescapeUndoesHexadecimalReferencesInEitherCase) {
    EXPECT_EQ(unescapeXmlEntities("&#x41;&#X41;&#xe9;&#xE9;&#x1F516;"), "AAéé\U0001F516");
    EXPECT_EQ(unescapeXmlEntities("&#x10FFFF;&#xFFFE;"), "\U0010FFFF\uFFFE");
}

TEST(XmlEntities, unknownEntitiesStay) {
    EXPECT_EQ(unescapeXmlEntities("&nbsp;&copy;&AMP;&Lt;&ampx;"), "&nbsp;&copy;&AMP;&Lt;&ampx;");
    EXPECT_EQ(unescapeXmlEntities("?a=1&b=2"), "?a=1&b=2");
}

TEST(XmlEntities, unterminatedEntitiesStay) {
    for (const char* text : {"&", "&&", "&a", "&amp", "&lt ", "&#", "&#;", "&#x", "&#x;", "&#65", "&#65 ",
                             "&#x41", "&#x41g;", "&#6a;", "&# 65;", "&#-65;", "&#+65;", "& amp;", "&;"})
        EXPECT_EQ(unescapeXmlEntities(text), text);
}

TEST(XmlEntities, anUnterminatedEntityDoesNotSwallowTheNext) {
    EXPECT_EQ(unescapeXmlEntities("&amp&lt;"), "&amp<");
    EXPECT_EQ(unescapeXmlEntities("&#65&#66;"), "&#65B");
    EXPECT_EQ(unescapeXmlEntities("&&amp;"), "&&");
}

TEST(XmlEntities, referencesToNoCharacterStay) {
    for (const char* text :
         {"&#0;", "&#x0;", "&#000;", "&#xD800;", "&#xDFFF;", "&#55296;", "&#x110000;", "&#1114112;",
          "&#4294967361;", "&#x100000041;", "&#99999999999999999999999999;", "&#xFFFFFFFFFFFFFFFFFFFFF;"})
        EXPECT_EQ(unescapeXmlEntities(text), text);
}

TEST(XmlEntities, unescapeKeepsEverythingElseAndNullBytes) {
    EXPECT_EQ(unescapeXmlEntities("\0é;#x41;\n"s), "\0é;#x41;\n"s);
    EXPECT_EQ(unescapeXmlEntities(""), "");
}

TEST(XmlEntities, unescapeUndoesWhatEscapeDid) {
    std::string text;
    for (int c = 0; c < 128; ++c)
        text += static_cast<char>(c);
    text += "é日本&amp;&#65;";
    EXPECT_EQ(unescapeXmlEntities(escapeXmlEntities(text)), text);
}

TEST(XmlEntities, textOfXmlBytesDecodesLenientlyAndThenUnescapes) {
    EXPECT_EQ(textOfXmlBytes("caf\xE9 &amp; tea").view(), "caf\uFFFD & tea");
    EXPECT_EQ(textOfXmlBytes("caf\xE9").view(), "caf\uFFFD");
    EXPECT_EQ(textOfXmlBytes("&#233;&#xE9;é").view(), "ééé");
    EXPECT_EQ(textOfXmlBytes("\xED\xA0\x80&lt;").view(), "\uFFFD\uFFFD\uFFFD<");
}

TEST(XmlEntities, textOfXmlBytesIsNeverNull) {
    EXPECT_FALSE(textOfXmlBytes("").isNull());
    EXPECT_TRUE(textOfXmlBytes("").isEmpty());
}

} // namespace
} // namespace tabulon
