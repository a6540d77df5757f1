// Tests the common reader of binary and XML property lists.
#include "plist/PropertyList.h"

#include "tests/plist/TestPlist.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using Kind = PropertyList::Kind;

std::string xmlOf(const std::string& content) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + content + "</plist>";
}

TEST(PropertyList, bothFormsReadAlike) {
    const std::string binary =
        test::Encoder({}).encode(test::dictionary({{"name", test::ascii("a & b")},
                                                   {"count", test::integer(-7)},
                                                   {"list", test::array({test::boolean(true)})}}));
    const std::string xml =
        xmlOf("<dict><key>name</key><string>a &amp; b</string><key>count</key><integer>-7</integer>"
              "<key>list</key><array><true/></array></dict>");
    for (const std::string& bytes : {binary, xml}) {
        const Result<PropertyList> list = PropertyList::open(bytes);
        ASSERT_TRUE(list);
        EXPECT_EQ(list->isXml(), bytes == xml);
        EXPECT_EQ(list->text(list->top(), "name"), Text("a & b"));
        EXPECT_EQ(static_cast<std::int64_t>(list->value(list->top(), "count").value()), -7);
        const auto array = list->value(list->top(), "list");
        ASSERT_EQ(array.kind(), Kind::Array);
        ASSERT_EQ(array.count(), 1u);
        EXPECT_EQ(list->element(array, 0).kind(), Kind::Boolean);
    }
}

TEST(PropertyList, theLastValueOfARepeatedKeyCounts) {
    const Result<PropertyList> list = PropertyList::open(
        xmlOf("<dict><key>a</key><string>1</string><key>a</key><string>2</string></dict>"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->text(list->top(), "a"), Text("2"));
}

TEST(PropertyList, aKeyThatIsNotThereIsDamagedAndItsTextNull) {
    const std::string xml = xmlOf("<dict><key>a</key><integer>1</integer></dict>");
    const Result<PropertyList> list = PropertyList::open(xml);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->value(list->top(), "b").kind(), Kind::Damaged);
    EXPECT_TRUE(list->text(list->top(), "b").isNull());
    EXPECT_TRUE(list->text(list->top(), "a").isNull());
    EXPECT_EQ(list->value(list->value(list->top(), "a"), "b").kind(), Kind::Damaged);
}

TEST(PropertyList, aDictionaryOfOneUidIsAUid) {
    const Result<PropertyList> list =
        PropertyList::open(xmlOf("<dict><key>CF$UID</key><integer>4</integer></dict>"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->top().kind(), Kind::Uid);
    EXPECT_EQ(list->top().value(), 4u);
}

TEST(PropertyList, aNumberOrDateThatDoesNotExistIsNull) {
    const auto kindOf = [](const std::string& element) {
        const std::string xml = xmlOf(element);
        return PropertyList::open(xml)->top().kind();
    };
    EXPECT_EQ(kindOf("<integer>9223372036854775807</integer>"), Kind::Integer);
    EXPECT_EQ(kindOf("<integer>-9223372036854775808</integer>"), Kind::Integer);
    for (const char* number :
         {"9223372036854775808", "-9223372036854775809", "0xFFFFFFFFFFFFFFFF", "1.5", ""})
        EXPECT_EQ(kindOf("<integer>" + std::string(number) + "</integer>"), Kind::Null) << number;
    EXPECT_EQ(kindOf("<date>2026-11-21T99:99:99Z</date>"), Kind::Date) << "it is four days later";
    for (const char* date : {"2026-11-21T-1:30:00Z", "2026-02-30T10:30:00Z", "2026-13-01T10:30:00Z"})
        EXPECT_EQ(kindOf("<date>" + std::string(date) + "</date>"), Kind::Null) << date;
}

TEST(PropertyList, otherBytesAreRefusedWithASentence) {
    for (const char* bytes : {"", "text", "bplist00", "<plist>", "<html/>", "<plist><thing/></plist>"}) {
        const Result<PropertyList> list = PropertyList::open(bytes);
        ASSERT_FALSE(list) << bytes;
        EXPECT_FALSE(list.error().message.empty()) << bytes;
    }
}

TEST(PropertyList, xmlIsKnownByItsFirstCharacters) {
    for (const char* bytes : {"<plist/>", " \t\r\n<plist/>", "\xEF\xBB\xBFx", "\xFE\xFFx", "\xFF\xFEx"})
        EXPECT_TRUE(looksLikeXml(bytes)) << bytes;
    for (const char* bytes : {"", " ", "bplist00", "x<plist/>", "\xEF\xBB"})
        EXPECT_FALSE(looksLikeXml(bytes)) << bytes;
}

} // namespace
} // namespace tabulon
