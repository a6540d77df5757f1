// Tests `Text` and `Date`.
#include "base/Text.h"

#include "base/Date.h"

#include <gtest/gtest.h>

#include <limits>

namespace tabulon {
namespace {

TEST(Text, nullAndEmptyAreDifferent) {
    EXPECT_TRUE(Text().isNull());
    EXPECT_TRUE(Text().isEmpty());
    EXPECT_FALSE(Text("").isNull());
    EXPECT_TRUE(Text("").isEmpty());
    EXPECT_FALSE(Text() == Text(""));
    EXPECT_TRUE(Text() == Text(nullptr));
}

TEST(Text, ofAViewWithoutAnAddressIsEmpty) {
    const Text text(std::string_view{});
    EXPECT_FALSE(text.isNull());
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(Text::fromBytes(std::string_view{}), Text(""));
}

TEST(Text, copiesShareTheirBytes) {
    const Text a("hello");
    const Text b = a;
    EXPECT_TRUE(a.sharesBytesWith(b));
    EXPECT_FALSE(a.sharesBytesWith(Text("hello")));
    EXPECT_EQ(a, Text("hello"));
    EXPECT_EQ(sizeof(Text), sizeof(void*));
}

TEST(Text, zeroBytesAreKept) {
    const Text text(std::string_view("a\0b", 3));
    EXPECT_EQ(text.view().size(), 3u);
    EXPECT_FALSE(text == Text("a"));
}

TEST(Text, malformedPartsBecomeReplacementCharacters) {
    EXPECT_EQ(Text::fromBytes("a\xFF"
                              "b"),
              Text("a\uFFFDb"));
    EXPECT_EQ(Text::fromBytes("\xE3\x81"), Text("\uFFFD"));
    EXPECT_EQ(Text::fromBytes("\xE3\x81"
                              "a"),
              Text("\uFFFDa"));
    EXPECT_EQ(Text::fromBytes("\xC0\xAF"), Text("\uFFFD\uFFFD"));
    EXPECT_EQ(Text::fromBytes("\xED\xA0\x80"), Text("\uFFFD\uFFFD\uFFFD"));
    EXPECT_EQ(Text::fromBytes("\xF0\x9F\x98\x80"), Text("\U0001F600"));
    EXPECT_FALSE(Text::fromBytes("").isNull());
}

TEST(Date, noneIsNoNumber) {
    EXPECT_TRUE(Date().isNull());
    EXPECT_FALSE(Date::fromReferenceSeconds(std::numeric_limits<double>::quiet_NaN()).isNull());
    EXPECT_FALSE(Date::fromReferenceSeconds(0).isNull());
    EXPECT_EQ(Date(), Date());
    // The bit pattern of the null date, read from a file, is not a null date.
    EXPECT_FALSE(Date::fromReferenceSeconds(std::bit_cast<double>(0x7FF87AB000000001u)).isNull());
    EXPECT_EQ(sizeof(Date), 8u);
}

TEST(Date, theReferenceIsTheFirstOfJanuary2001) {
    EXPECT_EQ(Date::fromUnixSeconds(978307200).referenceSeconds(), 0);
    EXPECT_EQ(Date::fromReferenceSeconds(1).unixSeconds(), 978307201);
}

} // namespace
} // namespace tabulon
