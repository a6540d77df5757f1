// Tests percent-encoding and percent-decoding of bytes.
#include "text/PercentCoding.h"

#include "base/Ascii.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(PercentCoding, everyByteHasTwoCapitalDigits) {
    std::string text;
    for (const char byte : {'\0', '\x0F', ' ', '%', '\x7F', '\x80', '\xAB', '\xFF'})
        percent::appendEscaped(text, byte);
    EXPECT_EQ(text, "%00%0F%20%25%7F%80%AB%FF");
}

TEST(PercentCoding, theRuleDecidesWhatIsEscaped) {
    EXPECT_EQ(percent::encode("a b/ü", ascii::isLetter), "a%20b%2F%C3%BC");
    EXPECT_EQ(percent::encode("a%b", [](char) { return true; }), "a%b");
    EXPECT_EQ(percent::encode("", ascii::isLetter), "");
}

TEST(PercentCoding, allBytesGoThereAndBack) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    EXPECT_EQ(percent::decode(percent::encode(bytes, ascii::isAlphanumeric)), bytes);
}

TEST(PercentCoding, digitsOfEitherCaseAreDecoded) {
    EXPECT_EQ(percent::decode("%c3%BC%aF"), "\xC3\xBC\xAF");
    EXPECT_EQ(percent::decode("a%00b"), std::string("a\0b", 3));
}

TEST(PercentCoding, aPercentSignBeforeAnythingElseIsUnchanged) {
    for (const char* text : {"%", "100%", "%2", "%zz", "%2g", "%g2", "%+1", "%-1", "% 1", "%x41"})
        EXPECT_EQ(percent::decode(text), text);
    EXPECT_EQ(percent::decode("%%41"), "%A");
    EXPECT_EQ(percent::decode("%2541"), "%41") << "once";
}

} // namespace
} // namespace tabulon
