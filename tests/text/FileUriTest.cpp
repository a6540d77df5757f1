// Tests the conversion of file paths to URIs and back.
#include "text/FileUri.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using namespace std::string_literals;

TEST(FileUri, everyPathGoesThereAndBack) {
    std::string all = "/";
    for (int byte = 1; byte < 256; ++byte)
        all += static_cast<char>(byte);
    for (const std::string& path : {"/"s, "/a b"s, "/%41#?x"s, "/日本/é"s, "/latin1-\xE9"s, all}) {
        const std::string uri = fileUri(path);
        EXPECT_TRUE(uri.starts_with("file:///"));
        EXPECT_EQ(uri.find_first_of(" #?\n\""), std::string::npos) << uri;
        EXPECT_EQ(pathOfFileUri(uri), path);
    }
}

TEST(FileUri, formsOfLocalFiles) {
    for (const char* uri :
         {"file:///tmp/a", "file:/tmp/a", "file://localhost/tmp/a", "FILE://LocalHost/tmp/a",
          "file:///tmp/a?query", "file:///tmp/a#part", "file:///%74mp/a"})
        EXPECT_EQ(pathOfFileUri(uri), "/tmp/a") << uri;
    EXPECT_EQ(pathOfFileUri("file:///100%"), "/100%");
    EXPECT_EQ(pathOfFileUri("file:///a%2"), "/a%2");
}

TEST(FileUri, everythingElseIsNoLocalFile) {
    for (const char* uri : {"", "file:", "file://", "file:a", "file://server/a", "http://localhost/a",
                            "/tmp/a", "smb://server/share/a", "file:///a%00b"})
        EXPECT_EQ(pathOfFileUri(uri), std::nullopt) << uri;
}

TEST(FileUri, whatLooksLikeAURI) {
    for (const char* text : {"file:///a", "file:/a", "http://x", "smb://h", "x-y+z.1://"})
        EXPECT_TRUE(looksLikeUri(text)) << text;
    for (const char* text : {"", "a", "/file:/a", "file:a", "c://x", "a b://c", "1a://b", "://"})
        EXPECT_FALSE(looksLikeUri(text)) << text;
}

} // namespace
} // namespace tabulon
