// Pasteboard items in the media types of the desktop.
#include "window/MimeItems.h"

#include "platform/fake/FakeBaseServices.h"
#include "platform/fake/MemoryFileStore.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using namespace std::string_literals;

class MimeItemsTest : public testing::Test {
protected:
    using Forms = std::vector<std::pair<std::string, std::string>>;

    /// Returns each item as "type=value" pieces.
    std::vector<std::string> read(const Forms& forms) {
        MimeContent content;
        for (const auto& [type, bytes] : forms)
            content.set(type, bytes);
        std::vector<std::string> texts;
        for (const PasteboardItem& item : pasteboardItems(content, {records, files, services})) {
            std::string text;
            for (const auto& [type, value] : item.values())
                text += (text.empty() ? "" : " ") + type.substr(type.find('.') + 1) + "=" + value;
            texts.push_back(text);
        }
        return texts;
    }
    static std::string utf16(std::string_view ascii) {
        std::string bytes;
        for (const char c : ascii)
            bytes += {c, '\0'};
        return bytes;
    }
    using Texts = std::vector<std::string>;

    FakeBaseServices base;
    BaseServices services = base.services();
    NodeRecords records;
    MemoryFileStore files;
};

TEST_F(MimeItemsTest, aLinkOfABrowserHasItsTitle) {
    EXPECT_EQ(read({{"text/x-moz-url", utf16("https://a/\nTitle")},
                    {"text/uri-list", "https://a/\r\n"},
                    {"text/plain", "https://a/"},
                    {"text/html", "<a href=\"https://a/\">Title</a>"}}),
              (Texts{"url=https://a/ url-name=Title utf8-plain-text=https://a/ "
                     "html=<a href=\"https://a/\">Title</a>"}));
}

TEST_F(MimeItemsTest, severalLinksAreSeveralItems) {
    EXPECT_EQ(read({{"text/x-moz-url", utf16("https://a/\nA\nhttps://b/\n\nhttps://c/")},
                    {"text/plain", "https://a/\nhttps://b/"}}),
              (Texts{"url=https://a/ url-name=A", "url=https://b/", "url=https://c/"}));
    EXPECT_EQ(read({{"text/uri-list", "# a comment\r\nhttps://a/\r\n\r\nmailto:x@y"}}),
              (Texts{"url=https://a/", "url=mailto:x@y"}));
}

TEST_F(MimeItemsTest, mozillasListInItsVariants) {
    EXPECT_EQ(read({{"text/x-moz-url", "\xFF\xFE" + utf16("https://a/\nT") + "\0\0"s}}),
              (Texts{"url=https://a/ url-name=T"}));
    EXPECT_EQ(read({{"text/x-moz-url", utf16("https://a/\r\nT\r\n")}}), (Texts{"url=https://a/ url-name=T"}));
    EXPECT_EQ(read({{"text/x-moz-url", "a\0:\0\x3D\xD8\x00\xDE\n\0\xE9\0"s}}), (Texts{"url=a:😀 url-name=é"}));
    EXPECT_EQ(read({{"text/x-moz-url", "x"}, {"text/plain", "text"}}).size(), 1u) << "half a unit";
    EXPECT_EQ(read({{"text/x-moz-url", ""}, {"text/uri-list", "https://a/"}}), (Texts{"url=https://a/"}));
}

TEST_F(MimeItemsTest, aListThatIsOfferedAsPlainTextTooIsNoText) {
    const std::string list = utf16("https://a/\nTitle");
    EXPECT_EQ(read({{"text/x-moz-url", list}, {"text/plain", list}}),
              (Texts{"url=https://a/ url-name=Title"}));
}

TEST_F(MimeItemsTest, theTitleOfASingleLinkMayStandBesideTheListOfURIs) {
    const std::string named = "https://a/\nThe title é";
    EXPECT_EQ(read({{"text/uri-list", "https://a/"}, {"_NETSCAPE_URL", named}}),
              (Texts{"url=https://a/ url-name=The title é"}));
    EXPECT_EQ(read({{"_NETSCAPE_URL", named}}), (Texts{"url=https://a/ url-name=The title é"}));
    EXPECT_EQ(read({{"text/x-moz-url", utf16("https://a/\nM")}, {"_NETSCAPE_URL", named}}),
              (Texts{"url=https://a/ url-name=M"}));
    EXPECT_EQ(read({{"text/uri-list", "https://a/\r\nhttps://b/"}, {"_NETSCAPE_URL", named}}),
              (Texts{"url=https://a/", "url=https://b/"}))
        << "of which of them would it be?";
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/a.txt"}, {"_NETSCAPE_URL", "file:///tmp/a.txt\na"}}),
              (Texts{"file-url=file:///tmp/a.txt"}));
    EXPECT_EQ(read({{"text/uri-list", "https://a/"}, {"_NETSCAPE_URL", "\xFF\0\n"s}}).size(), 1u);
}

TEST_F(MimeItemsTest, filesAreItemsOfTheirOwn) {
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/a%20b.txt\r\nfile:///tmp/c\r\n"},
                    {"text/plain", "/tmp/a b.txt\n/tmp/c"}}),
              (Texts{"file-url=file:///tmp/a%20b.txt", "file-url=file:///tmp/c"}));
}

TEST_F(MimeItemsTest, aLinkFileBringsTheURLInIt) {
    const std::string file = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>URL</key>"
                             "<string>https://in/</string></dict></plist>";
    ASSERT_TRUE(files.writeFileAtomically("/tmp/a.webloc", file));
    ASSERT_TRUE(files.writeFileAtomically("/tmp/a.txt", file));
    ASSERT_TRUE(files.writeFileAtomically("/tmp/bad.webloc", "damaged"));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/a.webloc"}}),
              (Texts{"file-url=file:///tmp/a.webloc url=https://in/"}));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/a.txt"}}), (Texts{"file-url=file:///tmp/a.txt"}));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/bad.webloc"}}),
              (Texts{"file-url=file:///tmp/bad.webloc"}));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/none.webloc"}}),
              (Texts{"file-url=file:///tmp/none.webloc"}));
}

TEST_F(MimeItemsTest, aLinkFileOfTheDesktopStandsForItsLink) {
    ASSERT_TRUE(files.writeFileAtomically("/tmp/a b.url", "[InternetShortcut]\r\nURL=https://in/\r\n"));
    ASSERT_TRUE(
        files.writeFileAtomically("/tmp/x.desktop", "[Desktop Entry]\nType=Link\nName=N\nURL=https://in/\n"));
    ASSERT_TRUE(files.writeFileAtomically("/tmp/y.desktop", "[Desktop Entry]\nType=Application\nName=N\n"));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/a%20b.url"}}), (Texts{"url-name=a b url=https://in/"}));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/x.desktop"}}), (Texts{"url-name=N url=https://in/"}));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/y.desktop"}}), (Texts{"file-url=file:///tmp/y.desktop"}));
}

TEST_F(MimeItemsTest, theNameOfALinkFileOfTheDesktopMayBeInCapitals) {
    ASSERT_TRUE(files.writeFileAtomically("/tmp/Site.URL", "[InternetShortcut]\r\nURL=https://in/\r\n"));
    ASSERT_TRUE(
        files.writeFileAtomically("/tmp/X.DESKTOP", "[Desktop Entry]\nType=Link\nName=N\nURL=https://in/\n"));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/Site.URL"}}), (Texts{"url-name=Site url=https://in/"}));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/X.DESKTOP"}}), (Texts{"url-name=N url=https://in/"}));
}

TEST_F(MimeItemsTest, aLinkFileThatIsTooLargeIsNotRead) {
    ASSERT_TRUE(files.writeFileAtomically("/tmp/a.webloc", std::string(kLargestLinkFile + 1, ' ')));
    EXPECT_EQ(read({{"text/uri-list", "file:///tmp/a.webloc"}}), (Texts{"file-url=file:///tmp/a.webloc"}));
}

TEST_F(MimeItemsTest, textAndHTMLAreOneItem) {
    EXPECT_EQ(read({{"text/plain", "a\xFF"}, {"text/html", "\xFF\xFE<\0p\0>\0"s}}),
              (Texts{"utf8-plain-text=a\uFFFD html=<p>"}));
    EXPECT_TRUE(read({}).empty());
    EXPECT_TRUE(read({{"image/png", "x"}}).empty());
}

TEST_F(MimeItemsTest, ownItemsComeBackAsTheyWere) {
    const Ref<Bookmark> node = Bookmark::initEmpty();
    node->setItemURL("https://a/\nb");
    PasteboardItem first;
    first.set(kItemType, records.add(NodeRecords::List::Copied, node));
    first.set(kStringType, "");
    PasteboardItem second;
    second.set("x", "\0\xFF"s);
    const MimeContent content = mimeContent({first, PasteboardItem(), second}, records);
    EXPECT_EQ(pasteboardItems(content, {records, files, services}),
              (std::vector{first, PasteboardItem(), second}));
    EXPECT_EQ(*content.get("text/uri-list"), "https://a/%20b\r\n") << "one line";
}

TEST_F(MimeItemsTest, ownItemsThatAreCutOffAreNone) {
    PasteboardItem item;
    item.set(kStringType, "text");
    const std::string whole = *mimeContent({item, item}, records).get(kItemsMimeType);
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_TRUE(read({{std::string(kItemsMimeType), whole.substr(0, size)}}).empty()) << size;
    std::string absurd = records.token() + "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF";
    EXPECT_TRUE(read({{std::string(kItemsMimeType), absurd}}).empty());
}

} // namespace
} // namespace tabulon
