// Tests the detection and removal of byte-order marks.
#include "text/ByteOrderMark.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(ByteOrderMark, eachMarkIsKnownByItsBytes) {
    EXPECT_EQ(byteOrderMarkOf("\xEF\xBB\xBFx"), ByteOrderMark::Utf8);
    EXPECT_EQ(byteOrderMarkOf("\xEF\xBB\xBF"), ByteOrderMark::Utf8);
    EXPECT_EQ(byteOrderMarkOf("\xFF\xFEx"), ByteOrderMark::Utf16LittleEndian);
    EXPECT_EQ(byteOrderMarkOf("\xFE\xFFx"), ByteOrderMark::Utf16BigEndian);
    for (const char* bytes : {"", "x", "\xEF\xBB", "\xEF", "\xFF", "\xFE", "x\xEF\xBB\xBF"})
        EXPECT_EQ(byteOrderMarkOf(bytes), ByteOrderMark::None);
    EXPECT_EQ(bytesOf(ByteOrderMark::None), "");
}

TEST(ByteOrderMark, oneMarkOfUtf8IsTakenOff) {
    EXPECT_EQ(withoutUtf8Mark("\xEF\xBB\xBFx"), "x");
    EXPECT_EQ(withoutUtf8Mark("\xEF\xBB\xBF"), "");
    EXPECT_EQ(withoutUtf8Mark("\xEF\xBB\xBF\xEF\xBB\xBFx"), "\xEF\xBB\xBFx");
    EXPECT_EQ(withoutUtf8Mark("x\xEF\xBB\xBF"), "x\xEF\xBB\xBF");
    EXPECT_EQ(withoutUtf8Mark("\xEF\xBB"), "\xEF\xBB");
    EXPECT_EQ(withoutUtf8Mark("\xFF\xFEx"), "\xFF\xFEx");
    EXPECT_EQ(withoutUtf8Mark(""), "");
}

} // namespace
} // namespace tabulon
