// The kinds of files, by their content and by their names.
#include "app/FileContent.h"

#include "model/ArchiveWriter.h"
#include "platform/fake/MemoryFileStore.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

// Returns "document", the name of the format that reads the file, or "unknown".
std::string kindOf(std::string_view bytes, const std::string& path) {
    const FileContent content = contentOfFile(bytes, path);
    switch (content.kind) {
    case FileContent::Kind::Document:
        return "document";
    case FileContent::Kind::Import:
        return std::string(content.format->name);
    case FileContent::Kind::Unknown:
        return "unknown";
    }
    return {};
}

std::string kindInCorpus(const std::string& name) {
    std::ifstream file(fs::path(TABULON_CORPUS_DIR) / name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    // The name has no extension, so that only the content is recognized.
    return kindOf(std::string(std::istreambuf_iterator<char>(file), {}), "/a");
}

TEST(FileContentTest, dependsOnTheContentThenOnTheExtension) {
    EXPECT_EQ(kindOf("bplist00", "/a.html"), "document");
    EXPECT_EQ(kindOf(std::string_view("\0\1classic", 9), "/a"), "document");
    EXPECT_EQ(kindOf("<?xml version=\"1.0\"?><!DOCTYPE plist><plist>", "/a"), "document");
    EXPECT_EQ(kindOf("\xEF\xBB\xBF\n<!DOCTYPE NETSCAPE-Bookmark-file-1>", "/a"), "html");
    EXPECT_EQ(kindOf("<HTML><BODY>", "/a.tbln"), "html-links");
    EXPECT_EQ(kindOf("<html><DL><p><DT><A HREF=x>", "/a"), "html");
    EXPECT_EQ(kindOf("", "/a.tbln"), "document");
    EXPECT_EQ(kindOf("text", "/a.HTM"), "html");
    EXPECT_EQ(kindOf("<?xml version=\"1.0\"?><xbel>", "/a"), "xbel");
    EXPECT_EQ(kindOf("damaged", "/a.xbel"), "xbel");
    EXPECT_EQ(kindOf("text", "/a"), "unknown");
    EXPECT_EQ(kindOf("{\"name\": \"something else\"}", "/Bookmarks"), "unknown");
    EXPECT_EQ(kindOf("", "/a"), "unknown");
}

TEST(FileContentTest, aDefinitionListDoesNotMakeAPageABookmarkFile) {
    const std::string link = "<p><a href=\"https://example.org/\">x</a>";
    EXPECT_EQ(kindOf("<!DOCTYPE html><html><dl><dt>Term<dd>Meaning</dl>" + link, "/a"), "html-links");
    EXPECT_EQ(kindOf("<html><dl><dt><b>Term</b></dt><dt><abbr>x</abbr></dt></dl>" + link, "/a.html"),
              "html-links");
    EXPECT_EQ(kindOf("<html><dl><dt", "/a"), "html-links");
    EXPECT_EQ(kindOf("<html><DT class=x>\n<P> <A\nHREF=x>", "/a"), "html");
    EXPECT_EQ(kindOf("<html><DT><H3>Folder</H3><DL>", "/a"), "html");
}

TEST(FileContentTest, whatAFileIsMayStandBehindALongBeginning) {
    const std::string style = "<style>" + std::string(5000, 'x') + "</style>";
    const std::string comment = "<!--" + std::string(5000, 'x') + "-->\n";
    EXPECT_EQ(kindOf("<html>" + style + "<DL><p><DT><H3>Folder</H3>", "/a"), "html");
    EXPECT_EQ(kindOf("<?xml version=\"1.0\"?>\n" + comment + comment + "<xbel>", "/a.xml"), "xbel");
    EXPECT_EQ(kindOf(style + "<p><a href=x>", "/a.html"), "html-links");
    EXPECT_EQ(kindOf("<!-- for <html> --><xbel>", "/a"), "xbel");
    EXPECT_EQ(kindOf("\xEF\xBB\xBF" + comment + "<!DOCTYPE NETSCAPE-Bookmark-file-1>", "/a"), "html");
    EXPECT_EQ(kindOf("<?xml version=\"1.0\"?>" + comment + "<plist>", "/a"), "document");
    EXPECT_EQ(kindOf("<?xml version=\"1.0\"?>" + comment + "<svg>", "/a"), "unknown");
    EXPECT_EQ(kindOf("<!--" + std::string(5000, 'x') + "<xbel>", "/a"), "unknown")
        << "the comment does not end";
}

class OpenableTest : public testing::Test {
protected:
    bool isOpenable(const std::string& path, const std::string& bytes) {
        files.reads.clear();
        files.files[path] = bytes;
        return tabulon::isOpenable(files, path);
    }
    bool wasReadWhole() const { return !files.reads.empty(); }

    const std::string rest = std::string(1 << 20, 'x');
    MemoryFileStore files;
};

TEST_F(OpenableTest, ofMostFilesTheBeginningIsRead) {
    const Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    EXPECT_TRUE(isOpenable("/a", writeDocumentArchive(*master) + rest));
    EXPECT_TRUE(isOpenable("/a", "<html>" + rest));
    EXPECT_TRUE(isOpenable("/a", "<?xml version=\"1.0\"?><xbel>" + rest));
    EXPECT_TRUE(isOpenable("/a", "{\"roots\": {" + rest));
    EXPECT_TRUE(isOpenable("/a.tbln", rest));
    EXPECT_FALSE(isOpenable("/a.png", "\x89PNG" + rest));
    EXPECT_FALSE(wasReadWhole());
}

TEST_F(OpenableTest, whereTheBeginningLeavesItOpenTheRestDecides) {
    EXPECT_TRUE(isOpenable("/a", "{\"other\": \"" + rest + "\", \"roots\": {}}"));
    EXPECT_FALSE(isOpenable("/a", "{\"other\": \"" + rest + "\"}"));
    EXPECT_TRUE(isOpenable("/a", std::string(70'000, ' ') + "<html>"));
    EXPECT_TRUE(isOpenable("/a.xml", "<?xml version=\"1.0\"?><!--" + rest + "--><xbel>"));
    EXPECT_FALSE(isOpenable("/a.xml", "<?xml version=\"1.0\"?><!--" + rest + "--><svg>"));
    const std::string list = "<?xml version=\"1.0\"?><plist><dict><key>URL</key><string>data:,";
    EXPECT_FALSE(isOpenable("/a.webloc", list + rest + "</string></dict></plist>")) << "one link";
    EXPECT_TRUE(isOpenable("/a.webloc", list + rest)) << "a damaged list is reported";
    EXPECT_TRUE(wasReadWhole());
}

TEST_F(OpenableTest, aDocumentThatCannotBeReadIsOpenedSoThatAnAlertIsShown) {
    files.unreadable = "/hidden";
    EXPECT_TRUE(isOpenable("/hidden.tbln", ""));
    EXPECT_FALSE(isOpenable("/hidden.png", ""));
    EXPECT_TRUE(tabulon::isOpenable(files, "/gone.tbln"));
    EXPECT_FALSE(tabulon::isOpenable(files, "/gone"));
}

TEST(FileContentTest, filesOfOtherProgramsAreKnown) {
    EXPECT_EQ(kindInCorpus("chromium-json/chromium/Bookmarks"), "chromium");
    EXPECT_EQ(kindInCorpus("chromium-json/vivaldi/Bookmarks"), "chromium");
    EXPECT_EQ(kindInCorpus("chromium-json/opera/Bookmarks"), "opera");
    EXPECT_EQ(kindInCorpus("netscape-html/firefox/input.html"), "html");
    EXPECT_EQ(kindInCorpus("netscape-html/chromium/input.html"), "html");
    EXPECT_EQ(kindInCorpus("xbel/kde/input.xbel"), "xbel");
    EXPECT_EQ(kindInCorpus("xbel/glib/input.xbel"), "xbel");
    EXPECT_EQ(kindInCorpus("plist/safari-binary/input.plist"), "safari");
    EXPECT_EQ(kindInCorpus("plist/icab/input.plist"), "icab");
    EXPECT_EQ(kindInCorpus("archive/plain/input"), "document");
    EXPECT_EQ(kindInCorpus("archive/xml/input"), "document");
}

TEST(FileContentTest, listsOfOtherProgramsAreNoDocuments) {
    const std::string head = "<?xml version=\"1.0\"?><plist><dict><key>Children</key><array><dict>";
    EXPECT_EQ(kindOf(head + "<key>WebBookmarkType</key>", "/a"), "safari");
    EXPECT_EQ(kindOf(head + "<key>URLString</key>", "/a"), "safari");
    EXPECT_EQ(kindOf(head + "<key>BookmarkType</key>", "/a"), "icab");
    EXPECT_EQ(kindOf("bplist00 Children FolderType", "/a"), "icab");
    EXPECT_EQ(kindOf("bplist00 Children URLString $objects $top", "/a"), "document")
        << "a name of a bookmark";
    EXPECT_EQ(kindOf("bplist00 Children", "/a"), "document") << "which reports the damage";
}

TEST(FileContentTest, textsInAListDoNotCountAsItsKeys) {
    const auto list = [](const std::string& key, const std::string& name) {
        return "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Title</key><string>" + name +
               "</string><key>Children</key><array><dict><key>" + key +
               "</key><string>x</string></dict></array></dict></plist>";
    };
    EXPECT_EQ(kindOf(list("WebBookmarkType", "how $objects and $top of an archive work"), "/a"), "safari");
    EXPECT_EQ(kindOf(list("URLString", "BookmarkType and FolderType"), "/a"), "safari");
    EXPECT_EQ(kindOf(list("BookmarkType", "WebBookmarkType and URLString"), "/a"), "icab");
    EXPECT_EQ(kindOf(list("Other", "$objects and $top"), "/a"), "document") << "which reports the damage";
}

} // namespace
} // namespace tabulon
