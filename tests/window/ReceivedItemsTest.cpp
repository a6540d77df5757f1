// Trees and lists of links between programs: reading those of other programs, and writing them for other
// programs.
#include "formats/import/XBELReader.h"
#include "tests/BriefTree.h"
#include "tests/window/WindowFixture.h"
#include "window/LinkLists.h"
#include "window/MimeItems.h"
#include "window/ReceivedTree.h"

#include <fmt/format.h>

namespace tabulon {
namespace {

using namespace std::string_literals;

std::string utf16(std::string_view ascii) {
    std::string bytes;
    for (const char c : ascii)
        bytes += {c, '\0'};
    return bytes;
}

std::string place(const char* title, const char* uri) {
    return fmt::format(R"({{"title":"{}","id":1,"type":"text/x-moz-place","uri":"{}"}})", title, uri);
}

class ReceivedItemsTest : public WindowTest {
protected:
    using Forms = std::initializer_list<std::pair<const char*, std::string>>;

    /// Returns the whole outline after a paste into an empty document.
    std::string pasted(Forms forms) {
        hold(forms);
        document.setMaster(makeMaster());
        open();
        controller->clipboard().pasteEditMenu();
        return briefly(document.getMaster());
    }
    static Ref<Bookmark> makeMaster() {
        Ref<Bookmark> master = Bookmark::initEmpty();
        master->makeParent();
        return master;
    }
    void hold(Forms forms) {
        pasteboard.held = {};
        for (const auto& [type, bytes] : forms)
            pasteboard.held.set(type, bytes);
    }
    std::string copied(std::string_view type) {
        const std::string* bytes = pasteboard.held.get(type);
        return bytes ? *bytes : "nothing";
    }
};

const std::string kXBEL = "<!DOCTYPE xbel><xbel><folder><title>F</title><bookmark href=\"https://in/\">"
                          "<title>In</title></bookmark><folder><title>Inner</title></folder></folder>"
                          "<separator/><bookmark href=\"mailto:x@y\"/></xbel>";

TEST_F(ReceivedItemsTest, aTreeOfXBELKeepsItsFolders) {
    EXPECT_EQ(pasted({{"application/x-xbel", kXBEL}, {"text/uri-list", "https://in/"}}),
              "F[In=https://in/ Inner[]] - Untitled=mailto:x@y");
    EXPECT_EQ(document.getMaster().getLast()->getType(), kMailType) << "classified";
    EXPECT_EQ(pasted({{"application/x-xbel", "<xbel><bookmark href=\"https://bare/\"/></xbel>"}}),
              "Untitled=https://bare/")
        << "without a declaration";
}

TEST_F(ReceivedItemsTest, whatIsCopiedForChromiumIsReadLikeWhatChromiumCopies) {
    pasted({{"application/x-xbel", kXBEL}});
    const ChildList& all = *document.getMaster().getChildren();
    controller->clipboard().copyBookmarksArray({all.begin(), all.end()});
    const std::string entries = copied("chromium/x-bookmark-entries");
    const std::string text = "https://in/\nmailto:x@y";
    EXPECT_EQ(pasted({{"chromium/x-bookmark-entries", entries}, {"text/plain", text}}),
              "F[In=https://in/ Inner[]] Untitled=mailto:x@y");
}

TEST_F(ReceivedItemsTest, whatIsNoTreeLeavesTheNextForm) {
    const std::string list = "https://a/";
    for (const std::string& bytes : {""s, "x"s, "<xbel>"s, "<xbel></xbel>"s, kXBEL.substr(0, 80),
                                     std::string(kLargestReceivedTree + 1, ' ')}) {
        EXPECT_EQ(pasted({{"application/x-xbel", bytes}, {"text/uri-list", list}}), "Untitled=https://a/");
        EXPECT_EQ(pasted({{"text/x-moz-place", bytes}, {"text/uri-list", list}}), "Untitled=https://a/");
        EXPECT_EQ(pasted({{"chromium/x-bookmark-entries", bytes}, {"text/uri-list", list}}),
                  "Untitled=https://a/");
    }
}

TEST_F(ReceivedItemsTest, aReceivedTreeIsPastedAsOftenAsItIsAskedFor) {
    pasted({{"application/x-xbel", kXBEL}});
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(document.getMaster().getChildren()->size(), 6u);
}

TEST_F(ReceivedItemsTest, aReceivedTreeIsDroppedAsACopy) {
    open();
    hold({{"application/x-xbel", kXBEL}});
    const DragInfo drag{
        .source = nullptr, .copies = false, .items = controller->items().itemsIn(pasteboard.held)};
    ASSERT_TRUE(OutlineDragging::isDragOfInterest(drag.items));
    ASSERT_EQ(controller->dragging().validateDrop(drag, nullptr, std::nullopt), DragOperation::Copy);
    EXPECT_TRUE(controller->dragging().acceptDrop(drag, nullptr, std::nullopt));
    EXPECT_EQ(briefly(document.getMaster()), "F[In=https://in/ Inner[]] - Untitled=mailto:x@y");
    EXPECT_NE(document.getMaster().getChild(), shared.records.nodes(NodeRecords::List::Received)[0].get());
}

TEST_F(ReceivedItemsTest, readingAnewForgetsWhatWasReceived) {
    open();
    hold({{"application/x-xbel", kXBEL}});
    const std::vector<PasteboardItem> items = controller->items().itemsIn(pasteboard.held);
    hold({{"text/plain", "https://a/"}});
    controller->items().itemsIn(pasteboard.held);
    EXPECT_TRUE(shared.records.nodes(NodeRecords::List::Received).empty());
    EXPECT_FALSE(shared.records.find(*items[0].get(kItemType)));
}

TEST_F(ReceivedItemsTest, placesKeepTitlesAndTags) {
    EXPECT_EQ(
        pasted({{"text/x-moz-place", utf16(place("A, \\n b", "https://a/") + "," + place("", "https://b/") +
                                           ",\n" + place("C", "https://c/"))}}),
        "A, \n b=https://a/ Untitled=https://b/ C=https://c/");
    EXPECT_EQ(
        pasted({{"text/x-moz-place", utf16(R"({"title":"T","type":"text/x-moz-place","uri":"https://t/",)"
                                           R"("tags":"x,y"})")}}),
        "T=https://t/");
    EXPECT_EQ(document.getMaster().getChild()->itemTags(), Text("x,y"));
}

TEST_F(ReceivedItemsTest, foldersOfPlacesAreFilledFromTheHTML) {
    const std::string places =
        utf16(place("A", "https://a/") + R"(,{"title":"F","type":"text/x-moz-place-container"})"
                                         R"(,{"title":"","type":"text/x-moz-place-separator"})");
    const std::string html =
        "<A HREF=\"https://a/\">A</A>\n<DL><DT>F</DT>\n<DD>\n<A HREF=\"https://in/?a&amp;b\">In</A>\n"
        "</DD>\n<DD>\n<HR>\n</DD>\n<DD>\n<DL><DT>Inner</DT>\n<DD>\n<A HREF=\"https://deep/\">Deep</A>\n"
        "</DD>\n</DL>\n</DD>\n</DL>\n<HR>\n";
    const std::string list = utf16("https://a/\nA\nhttps://in/?a&b\nIn\n");
    EXPECT_EQ(pasted({{"text/x-moz-place", places}, {"text/html", html}, {"text/x-moz-url", list}}),
              "A=https://a/ F[In=https://in/?a&b - Inner[Deep=https://deep/]] -");
    EXPECT_EQ(pasted({{"text/x-moz-place", places}, {"text/x-moz-url", list}}),
              "A=https://a/ In=https://in/?a&b")
        << "the links are more than nothing of the folder";
    EXPECT_EQ(pasted({{"text/x-moz-place", places}, {"text/html", "<p>other</p>"}}), "A=https://a/ F[] -");
}

TEST_F(ReceivedItemsTest, theLinksOfASelectionInAPage) {
    const std::string html =
        "<p>See <a href=\"https://a/\">the\n <b>first</b> one</a>, <a href=\"#here\">here</a>"
        " and <a href=\"https://b/\"></a></p>";
    EXPECT_EQ(pasted({{"text/plain", "See the first one, here and"}, {"text/html", html}}),
              "the first one=https://a/ Untitled=https://b/");
    EXPECT_EQ(pasted({{"text/plain", "https://a/\r\nhttps://b/"},
                      {"text/html", "<a href=\"https://a/\">A</a><a href=\"https://b/\">B</a>"}}),
              "A=https://a/ B=https://b/")
        << "the text is their addresses";
    EXPECT_EQ(pasted({{"text/plain", "https://text/"}, {"text/html", html}}), "Untitled=https://text/");
    EXPECT_EQ(pasted({{"text/plain", "words"}, {"text/html", "<p>words</p>"}}), "Untitled=words");
}

TEST_F(ReceivedItemsTest, linesThatEndWithACarriageReturnLoseIt) {
    EXPECT_EQ(pasted({{"text/plain", "One\thttps://one/\r\nhttps://two/\r\n"}}),
              "One=https://one/ Untitled=https://two/");
    EXPECT_EQ(pasted({{"text/plain", "https://a/\r"}}), "Untitled=https://a/\r") << "no line end";
}

TEST_F(ReceivedItemsTest, whatIsNoAddressIsNoLinkOfAList) {
    EXPECT_EQ(pasted({{"text/x-moz-url", utf16("https://a/\nOne\n & two\nhttps://b/\nB")}}),
              "One  & two=https://a/ B=https://b/");
    EXPECT_EQ(pasted({{"text/uri-list", "words\r\nhttps://a/\r\n/path\r\n"}}), "Untitled=https://a/");
    EXPECT_EQ(pasted({{"text/x-moz-url", utf16("javascript:f(1, 2)\nJ")}}), "J=javascript:f(1, 2)");
    EXPECT_EQ(pasted({{"text/x-moz-url", utf16("words\nwords")}}), "");
}

TEST_F(ReceivedItemsTest, aFolderIsHandedOnAsItsLinksAndAsATree) {
    Bookmark& folder = add(makeFolder("F & G"));
    add(makeLink("one", "https://1/"), &folder);
    add(makeSeparator(), &folder);
    Bookmark& inner = add(makeFolder("inner"), &folder);
    add(makeLink("two", "https://2/ü"), &inner);
    open();
    select({&folder});
    controller->clipboard().copyEditMenu();
    EXPECT_EQ(copied("text/plain"), "nothing") << "a folder has no text";
    EXPECT_EQ(copied("text/uri-list"), "https://1/\r\nhttps://2/%C3%BC\r\n");
    EXPECT_EQ(linksOfMozillaList(copied("text/x-moz-url")).at(1).title, "two");
    EXPECT_EQ(copied("text/html"), "<a href=\"https://1/\">one</a><br>\n<a href=\"https://2/ü\">two</a>");
    const auto tree = readXBEL(copied("application/x-xbel"), {base.services()});
    ASSERT_TRUE(tree);
    EXPECT_EQ(briefly(**tree), "F & G[one=https://1/ - inner[two=https://2/ü]]");
}

TEST_F(ReceivedItemsTest, aTreeThatIsTooDeepIsHandedOnWithoutXBEL) {
    Bookmark* folder = &add(makeFolder("f"));
    Bookmark& top = *folder;
    for (int depth = 0; depth < 100000; ++depth)
        folder = &add(makeFolder("f", false), folder);
    add(makeLink("deep", "https://deep/"), folder);
    open();
    select({&top});
    controller->clipboard().copyEditMenu();
    EXPECT_EQ(copied("application/x-xbel"), "nothing");
    EXPECT_EQ(copied("text/uri-list"), "https://deep/\r\n");
}

TEST_F(ReceivedItemsTest, listsThatWouldBeTooLongAreLeftOut) {
    Bookmark& folder = add(makeFolder("f", false));
    const std::string url = "https://" + std::string(std::size_t{1} << 20, 'x');
    const Ref<Bookmark> first = makeLink("l", url.c_str());
    for (int i = 0; i < 200; ++i) { // all nodes share the text
        const Ref<Bookmark> link = makeLink("l", "");
        link->setItemURL(first->itemURL());
        add(link, &folder);
    }
    open();
    select({&folder});
    controller->clipboard().copyEditMenu();
    for (const char* type : {"text/uri-list", "text/x-moz-url", "text/html"})
        EXPECT_EQ(copied(type), "nothing") << type;
    EXPECT_NE(copied(kItemsMimeType), "nothing");
}

} // namespace
} // namespace tabulon
