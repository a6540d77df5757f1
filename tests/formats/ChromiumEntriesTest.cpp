// Tests reading and writing of the bookmarks that Chromium copies and drags.
#include "formats/export/ChromiumEntries.h"

#include "base/Ref.h"
#include "formats/import/ChromiumEntries.h"
#include "tests/BriefTree.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using namespace std::string_literals;

// The data that Chromium 156 copied for a link and for a folder that contains a link.
const std::string kCopied =
    "\x04\x01\0\0\0\0\0\0\x02\0\0\0"
    "\x01\0\0\0\x1c\0\0\0https://one.example/?a=1&b=2\x09\0\0\0O\0n\0e\0 \0&\0 \0\x1c\x20\xe5\x65\x1d\x20\0\0"
    "\x05\0\0\0\0\0\0\0\x01\0\0\0\x13\0\0\0power_bookmark_meta\0\0\0\0\0"
    "\0\0\0\0\0\0\0\0\x06\0\0\0F\0o\0l\0d\0e\0r\0\x07\0\0\0\0\0\0\0\0\0\0\0\x01\0\0\0"
    "\x01\0\0\0\x13\0\0\0https://in.example/\0\x02\0\0\0I\0n\0\x08\0\0\0\0\0\0\0\x01\0\0\0"
    "\x13\0\0\0power_bookmark_meta\0\0\0\0\0"s;

std::string read(std::string_view bytes) {
    const Ref<Bookmark> root = readChromiumEntries(bytes, Date());
    return root ? briefly(*root) : "failed";
}

Ref<Bookmark> folderOf(const std::vector<Ref<Bookmark>>& children, const char* name = "") {
    Ref<Bookmark> folder = Bookmark::init(Date());
    folder->makeParent();
    folder->setItemName(name);
    for (const Ref<Bookmark>& child : children)
        folder->addChild(child);
    return folder;
}

Ref<Bookmark> link(const char* name, const char* url) {
    Ref<Bookmark> link = Bookmark::init(Date());
    link->setItemName(name);
    link->setItemURL(url);
    return link;
}

std::string rest(std::string bytes) {
    bytes[0] = static_cast<char>((bytes.size() - 4) & 0xFF);
    bytes[1] = static_cast<char>((bytes.size() - 4) >> 8);
    return bytes;
}

TEST(ChromiumEntriesTest, linksAndFoldersAreRead) {
    EXPECT_EQ(read(rest(kCopied)), "One & “日”=https://one.example/?a=1&b=2 Folder[In=https://in.example/]");
}

TEST(ChromiumEntriesTest, aListThatIsNotWholeIsNone) {
    const std::string whole = rest(kCopied);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(read(rest(whole.substr(0, size) + std::string(size < 4 ? 4 - size : 0, '\0'))), "failed")
            << size;
    std::string many = whole;
    many[8] = many[11] = '\x7F'; // a count larger than the data allows
    EXPECT_EQ(read(many), "failed");
}

TEST(ChromiumEntriesTest, whatIsWrittenIsReadAgain) {
    const Ref<Bookmark> separator = Bookmark::init(Date());
    separator->setType(kSeparatorType);
    const Ref<Bookmark> root =
        folderOf({link("A & “日本” 😀", "https://a/?x=1&y=é"), separator, link("mail", "a@b"),
                  folderOf({folderOf({}, ""), link("", "mailto:a@b")}, "F"), link("last", "javascript:f()")});
    EXPECT_EQ(read(exportToChromiumEntries(*root, 1 << 20)),
              "A & “日本” 😀=https://a/?x=1&y=é F[[] =mailto:a@b] last=javascript:f()")
        << "separators and what has no scheme have no place there";
}

TEST(ChromiumEntriesTest, whatIsTooLargeOrTooDeepIsNotWritten) {
    const Ref<Bookmark> root = folderOf({link("a", "https://a/"), link("b", "https://b/")});
    const std::size_t size = exportToChromiumEntries(*root, 1 << 20).size();
    EXPECT_EQ(exportToChromiumEntries(*root, size - 4).size(), size);
    EXPECT_EQ(exportToChromiumEntries(*root, size - 5), "");
    EXPECT_EQ(exportToChromiumEntries(*folderOf({}), 1 << 20), "");
    Ref<Bookmark> deep = folderOf({});
    for (int level = 0; level < 100'000; ++level)
        deep = folderOf({deep});
    EXPECT_EQ(exportToChromiumEntries(*deep, std::size_t{1} << 30), "");
}

TEST(ChromiumEntriesTest, aDeepListIsReadWithoutRecursion) {
    const std::string level = "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x01\0\0\0"s;
    std::string bytes = "\0\0\0\0\0\0\0\0\x01\0\0\0"s;
    for (int i = 0; i < 200'000; ++i)
        bytes += level;
    bytes[bytes.size() - 4] = 0;
    int depth = 0;
    const Ref<Bookmark> root = readChromiumEntries(bytes, Date());
    ASSERT_TRUE(root);
    for (const Bookmark* node = root.get(); node->hasChildren(); node = *node->getChildren()->begin())
        ++depth;
    EXPECT_EQ(depth, 200'000);
}

} // namespace
} // namespace tabulon
