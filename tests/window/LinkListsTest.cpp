// The lists of links that programs pass to each other.
#include "window/LinkLists.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(LinkLists, aListOfURIsIsOneOfFilesOrOfLinks) {
    using Uris = std::vector<std::string>;
    EXPECT_EQ(fileUrisIn("# comment\r\nfile:///a\r\n\r\nfile:///b%20c\r\n"),
              (Uris{"file:///a", "file:///b%20c"}));
    EXPECT_EQ(fileUrisIn("file:///a\r\nhttp://x/\r\nfile:///b\r\n"), Uris{});
    EXPECT_EQ(fileUrisIn("file:///a\r\nfile://server/b\r\n"), Uris{}) << "no file of this computer";
    EXPECT_EQ(fileUrisIn("file:///a\nfile:///b"), (Uris{"file:///a", "file:///b"}));
    EXPECT_EQ(fileUrisIn(""), Uris{});
    EXPECT_EQ(fileUrisIn("\r\n\r\n"), Uris{});
}

} // namespace
} // namespace tabulon
