// Tests the length of a URI's scheme.
#include "text/UriScheme.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(UriScheme, lengthWithoutTheColon) {
    EXPECT_EQ(schemeLength("http://x"), 4u);
    EXPECT_EQ(schemeLength("a:"), 1u);
    EXPECT_EQ(schemeLength("x-Y+z.1:a:b"), 7u);
}

TEST(UriScheme, textsWithoutASchemeHaveNone) {
    for (const char* text :
         {"", ":", "http", "1a:", "+a:", ".a:", "a b:", "a/b:", "\xC3\xA9:", "a\xC3\xA9:", "//x:1", " a:"})
        EXPECT_EQ(schemeLength(text), 0u) << text;
}

} // namespace
} // namespace tabulon
