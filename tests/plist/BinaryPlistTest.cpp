// Tests that `BinaryPlist` reads the lists of `PlistWriter` and of a second writer, and refuses damaged ones.
#include "plist/BinaryPlist.h"

#include "plist/PlistWriter.h"
#include "tests/plist/TestPlist.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using Kind = BinaryPlist::Kind;
using Object = BinaryPlist::Object;

TEST(BinaryPlist, readsEveryKindThatTheWriterWrites) {
    PlistWriter writer(16, 256);
    const std::vector<std::uint64_t> elements = {
        writer.writeNull(),      writer.writeBoolean(true),        writer.writeInteger(-2),
        writer.writeReal(0.5),   writer.writeDate(12.25),          writer.writeData("\x01\x02"),
        writer.writeText("abc"), writer.writeText("\u00E9\u4E2D"), writer.writeUid(300),
    };
    const std::string bytes = writer.finish(writer.writeArray(elements));
    const Result<BinaryPlist> plist = BinaryPlist::open(bytes);
    ASSERT_TRUE(plist);
    const Object top = plist->object(plist->topObject());
    ASSERT_EQ(top.kind(), Kind::Array);
    ASSERT_EQ(top.count(), elements.size());
    const auto at = [&](std::uint64_t index) { return plist->object(plist->reference(top, index)); };
    EXPECT_EQ(at(0).kind(), Kind::Null);
    EXPECT_EQ(at(1).kind(), Kind::Boolean);
    EXPECT_EQ(at(1).value(), 1u);
    EXPECT_EQ(at(2).kind(), Kind::Integer);
    EXPECT_EQ(static_cast<std::int64_t>(at(2).value()), -2);
    EXPECT_EQ(at(3).kind(), Kind::Real);
    EXPECT_EQ(at(3).real(), 0.5);
    EXPECT_EQ(at(4).kind(), Kind::Date);
    EXPECT_EQ(at(4).real(), 12.25);
    EXPECT_EQ(at(5).kind(), Kind::Data);
    EXPECT_EQ(at(5).count(), 2u);
    EXPECT_EQ(at(6).kind(), Kind::Ascii);
    EXPECT_EQ(BinaryPlist::text(at(6)), Text("abc"));
    EXPECT_EQ(at(7).kind(), Kind::Utf16);
    EXPECT_EQ(BinaryPlist::text(at(7)), Text("\u00E9\u4E2D"));
    EXPECT_EQ(at(8).kind(), Kind::Uid);
    EXPECT_EQ(at(8).value(), 300u);
    EXPECT_EQ(plist->object(plist->objectCount()).kind(), Kind::Damaged);
}

TEST(BinaryPlist, readsIntegersOfEveryWidth) {
    for (const unsigned width : {0u, 1u, 2u, 3u}) {
        const std::string bytes = test::Encoder({.integerWidth = width}).encode(test::integer(0x7F));
        const Result<BinaryPlist> plist = BinaryPlist::open(bytes);
        ASSERT_TRUE(plist) << width;
        EXPECT_EQ(plist->object(plist->topObject()).value(), 0x7Fu) << width;
    }
}

TEST(BinaryPlist, readsReferencesAndOffsetsOfEveryWidth) {
    for (const unsigned reference : {1u, 2u, 3u, 4u, 8u}) {
        for (const unsigned offset : {1u, 2u, 4u, 8u}) {
            const std::string bytes =
                test::Encoder({.referenceSize = reference, .offsetSize = offset, .shuffleSeed = 3})
                    .encode(test::dictionary({{"a", test::ascii("b")}}));
            const Result<BinaryPlist> plist = BinaryPlist::open(bytes);
            ASSERT_TRUE(plist) << reference << ' ' << offset;
            const Object top = plist->object(plist->topObject());
            ASSERT_EQ(top.kind(), Kind::Dictionary);
            EXPECT_TRUE(BinaryPlist::textEquals(plist->object(plist->reference(top, 0)), "a"));
            EXPECT_TRUE(BinaryPlist::textEquals(plist->object(plist->reference(top, 1)), "b"));
        }
    }
}

TEST(BinaryPlist, refusesEveryBeginningOfAList) {
    const std::string bytes = test::Encoder({}).encode(test::array({test::ascii("text"), test::integer(1)}));
    ASSERT_TRUE(BinaryPlist::open(bytes));
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(BinaryPlist::open(bytes.substr(0, size))) << size;
}

TEST(BinaryPlist, anObjectThatReachesIntoTheOffsetTableIsDamaged) {
    const std::string bytes = test::Encoder({}).encode(test::array({test::raw("\x5Etext")}));
    const Result<BinaryPlist> plist = BinaryPlist::open(bytes);
    ASSERT_TRUE(plist);
    const Object top = plist->object(plist->topObject());
    EXPECT_EQ(plist->object(plist->reference(top, 0)).kind(), Kind::Damaged);
}

} // namespace
} // namespace tabulon
