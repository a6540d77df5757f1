// Copy, cut and paste, the records of live nodes, and the nodes made of pasteboard items.
#include "base/Settings.h"
#include "model/LinkType.h"
#include "tests/window/WindowFixture.h"
#include "window/BookmarkPasteboard.h"
#include "window/MimeItems.h"

#include <fmt/format.h>

namespace tabulon {
namespace {

using namespace std::string_literals;

std::string entry(const char* title, const char* url) {
    std::string dictionary = "<dict>";
    if (title)
        dictionary +=
            fmt::format("<key>URIDictionary</key><dict><key>title</key><string>{}</string></dict>", title);
    if (url)
        dictionary += fmt::format("<key>URLString</key><string>{}</string>", url);
    return dictionary + "</dict>";
}

std::string plist(const std::string& content) {
    return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + content + "</plist>";
}

std::string statistics(int total, int folders) {
    return plist(fmt::format("<dict><key>TotalCount</key><integer>{}</integer>"
                             "<key>FolderCount</key><integer>{}</integer></dict>",
                             total, folders));
}

PasteboardItem makeItem(std::initializer_list<PasteboardItem::Value> values) {
    PasteboardItem item;
    for (const auto& [type, value] : values)
        item.set(type, value);
    return item;
}

std::string typed(std::string_view type) {
    return std::string(type);
}

class PasteboardTest : public WindowTest {
protected:
    std::string copied(std::string_view type = "text/plain") {
        const std::string* bytes = pasteboard.held.get(type);
        return bytes ? *bytes : "nothing";
    }
    void copy(std::initializer_list<Bookmark*> items) {
        select(items);
        controller->clipboard().copyEditMenu();
    }
    void paste(const std::string& text) {
        pasteboard.setString(text);
        controller->clipboard().pasteEditMenu();
    }
    Ref<Bookmark> read(std::initializer_list<PasteboardItem::Value> values) {
        return pasteboardItemToBookmark(makeItem(values),
                                        {.records = shared.records,
                                         .untitled = "Untitled",
                                         .now = base.now(),
                                         .grabAllHTML = [this](const std::string& html) { grabbed = html; }});
    }
    long changes() { return document.changeCount(); }

    std::string grabbed;
};

TEST_F(PasteboardTest, theCopyFormatSaysWhatTheTextIs) {
    Bookmark& link = add(makeLink("N", "https://u/"));
    open();
    const std::vector<std::pair<int, std::string>> expected = {
        {0, "https://u/"}, {1, "<https://u/>"}, {2, "N\thttps://u/"}, {3, "<a href=\"https://u/\">N</a>"},
        {4, "https://u/"}, {-1, "https://u/"}};
    for (const auto& [format, text] : expected) {
        setValue(base.defaults, settings::kCopyFormat, format);
        copy({&link});
        EXPECT_EQ(copied(), text) << format;
    }
}

TEST_F(PasteboardTest, optionHeldCopiesHTMLWhateverTheFormat) {
    Bookmark& link = add(makeLink("N", "https://u/"));
    open();
    setValue(base.defaults, settings::kCopyFormat, 2);
    keyboard.option = true;
    copy({&link});
    EXPECT_EQ(copied(), "<a href=\"https://u/\">N</a>");
}

TEST_F(PasteboardTest, severalLinksAreLinesAndAFolderHasNoText) {
    Bookmark& first = add(makeLink("a", "https://a/"));
    Bookmark& folder = add(makeFolder("f", false));
    Bookmark& second = add(makeLink("b & c", "https://b/ü?x=1&y=2"));
    open();
    copy({&first, &folder, &second});
    EXPECT_EQ(copied(), "https://a/\nhttps://b/ü?x=1&y=2");
    EXPECT_EQ(copied("text/uri-list"), "https://a/\r\nhttps://b/%C3%BC?x=1&y=2\r\n");
    EXPECT_EQ(copied("text/html"), "<a href=\"https://a/\">a</a><br>\n"
                                   "<a href=\"https://b/ü?x=1&amp;y=2\">b &amp; c</a>");
    copy({&first});
    EXPECT_EQ(copied("text/x-moz-url"), "h\0t\0t\0p\0s\0:\0/\0/\0a\0/\0\n\0a\0"s);
    copy({&folder});
    EXPECT_EQ(copied(), "nothing");
    EXPECT_NE(copied(kItemsMimeType), "nothing");
}

TEST_F(PasteboardTest, aLongTextThatManyLinksShareIsNotWrittenForEachOfThem) {
    const Text url("https://" + std::string(std::size_t{1} << 20, 'x'));
    for (int i = 0; i < 300; ++i)
        add(makeLink("l")).setItemURL(url);
    open();
    outline().selectAll();
    controller->clipboard().copyEditMenu();
    EXPECT_FALSE(pasteboard.held.get("text/plain"));
    EXPECT_LT(pasteboard.held.get(kItemsMimeType)->size(), 100'000u);
    controller->clipboard().pasteEditMenu();
    ASSERT_EQ(rowNames().size(), 600u);
    EXPECT_EQ(controller->outline().itemAtRow(599).itemURL(), url);
    outline().selectAll();
    for (const PasteboardItem& item : controller->dragging().beginDraggingSession())
        EXPECT_FALSE(item.offers(kStringType));
}

TEST_F(PasteboardTest, copyingNothingLeavesThePasteboard) {
    add(makeLink("a"));
    open();
    pasteboard.setString("before");
    copy({});
    EXPECT_EQ(copied(), "before");
    EXPECT_EQ(pasteboard.changes, 0);
}

TEST_F(PasteboardTest, copyingNothingLeavesWhatWasCutPasteable) {
    Bookmark& folder = add(makeFolder("f", true));
    add(makeLink("inside"), &folder);
    add(makeLink("l"));
    open();
    select({&folder});
    controller->clipboard().cut();
    copy({});
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"f", "inside", "l"}));
}

TEST_F(PasteboardTest, theCopyListHoldsDeepCopiesOfTheLastCopy) {
    Bookmark& folder = add(makeFolder("f", false));
    add(makeLink("inside"), &folder);
    Bookmark& link = add(makeLink("l"));
    open();
    copy({&link});
    copy({&folder});
    const auto& list = shared.records.nodes(NodeRecords::List::Copied);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_NE(list[0].get(), &folder);
    EXPECT_EQ(list[0]->getChild()->itemName(), Text("inside"));
}

TEST_F(PasteboardTest, theClickedRowIsCopiedAndTheSelectedRowsAreCut) {
    Bookmark& clicked = add(makeLink("clicked", "https://clicked/"));
    Bookmark& selected = add(makeLink("selected", "https://selected/"));
    open();
    select({&selected});
    controller->outline().setClickedRow(0);
    controller->clipboard().cut();
    EXPECT_EQ(copied(), "https://clicked/");
    EXPECT_EQ(rowNames(), std::vector<std::string>{"clicked"});
    EXPECT_EQ(&controller->outline().itemAtRow(0), &clicked);
    EXPECT_EQ(changes(), 1);
}

TEST_F(PasteboardTest, whatWasCopiedIsPastedWhole) {
    Bookmark& folder = add(makeFolder("f", false));
    Bookmark& inside = add(makeLink("inside"), &folder);
    inside.setItemNote("note");
    inside.setLabel(3);
    Bookmark& link = add(makeLink("l"));
    open();
    copy({&folder});
    inside.setItemNote("changed after the copy");
    select({&link});
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"f", "l", "f"}));
    const Bookmark& pasted = *controller->outline().itemAtRow(2).getChild();
    EXPECT_EQ(pasted.itemNote(), Text("note"));
    EXPECT_EQ(pasted.getLabel(), 3);
    EXPECT_EQ(pasted.getDocument(), &document);
    EXPECT_EQ(changes(), 1);
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"f", "l", "f", "f"})) << "once more, another copy";
}

TEST_F(PasteboardTest, severalItemsKeepTheirOrderAndAnExpandedFolderTakesTheNext) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& b = add(makeLink("b"));
    Bookmark& folder = add(makeFolder("f", true));
    Bookmark& c = add(makeLink("c"));
    open();
    copy({&a, &b, &folder, &c});
    select({&c});
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"a", "b", "f", "c", "a", "b", "f", "c"}));
    EXPECT_EQ(controller->outline().levelForRow(6), 0);
    EXPECT_EQ(controller->outline().levelForRow(7), 1)
        << "the pasted folder is expanded and takes the next item";
    EXPECT_EQ(changes(), 4) << "one change an item";
}

TEST_F(PasteboardTest, manyItemsArePastedAsFewAre) {
    Bookmark& folder = add(makeFolder("f", true));
    std::vector<std::string> expected{"f"};
    for (int i = 0; i < 300; ++i) {
        add(makeLink(std::to_string(i).c_str()), &folder);
        expected.push_back(std::to_string(i));
    }
    open();
    outline().selectRows({{1, 300}});
    controller->clipboard().copyEditMenu();
    select({&folder});
    const int reloads = outline().reloads;
    controller->clipboard().pasteEditMenu();
    const std::vector<std::string> names(expected.begin() + 1, expected.end());
    expected.insert(expected.end(), names.begin(), names.end());
    EXPECT_EQ(rowNames(), expected);
    EXPECT_EQ(outline().reloads, reloads + 1);
    EXPECT_EQ(outline().selectedRows(), (RowSet{{300, 1}})) << "the last one that was pasted";
    EXPECT_EQ(changes(), 300);
}

TEST_F(PasteboardTest, linesOfNameTabURLAndBareURLs) {
    open();
    paste("Name\thttps://named/\nhttps://bare/\n");
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"Name", "Untitled"}));
    EXPECT_EQ(controller->outline().itemAtRow(0).itemURL(), Text("https://named/"));
    EXPECT_EQ(controller->outline().itemAtRow(1).itemURL(), Text("https://bare/"));
    EXPECT_EQ(changes(), 2) << "the empty piece behind the last line feed is none";
}

TEST_F(PasteboardTest, aLineWithATabIsSplitAndClassified) {
    open();
    paste("Mail\tmailto:a@b\tmore");
    EXPECT_EQ(rowNames(), std::vector<std::string>{"Mail"});
    EXPECT_EQ(controller->outline().itemAtRow(0).itemURL(), Text("mailto:a@b"))
        << "further fields are left out";
    EXPECT_EQ(controller->outline().itemAtRow(0).getType(), kMailType);
}

TEST_F(PasteboardTest, splittingTakesLineFeedsOutOfAURLThatEndsInOne) {
    open();
    const Ref<Bookmark> split = controller->clipboard().splitBookmark("n\thttps://a/\nb\n");
    ASSERT_TRUE(split);
    EXPECT_EQ(split->itemURL(), Text("https://a/b"));
    EXPECT_EQ(controller->clipboard().splitBookmark("n\thttps://a/\nb")->itemURL(), Text("https://a/\nb"));
    EXPECT_FALSE(controller->clipboard().splitBookmark(""));
    EXPECT_FALSE(controller->clipboard().splitBookmark("name\t"));
    EXPECT_EQ(changes(), 2);
}

TEST_F(PasteboardTest, aTextIsSplitOnlyWhereItIsTheOnlyItem) {
    const auto hold = [this](const std::vector<PasteboardItem>& items) {
        pasteboard.setContent(mimeContent(items, shared.records));
    };
    const PasteboardItem named = makeItem({{typed(kStringType), "Name\thttps://named/"}});
    open();
    hold({named, PasteboardItem()});
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(rowNames(), std::vector<std::string>{"Name"}) << "an empty second item does not count";
    hold({named, makeItem({{typed(kStringType), "https://bare/"}})});
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"Name", "Untitled", "Untitled"}));
    EXPECT_EQ(controller->outline().itemAtRow(1).itemURL(), Text("Name\thttps://named/"));
    hold({named, PasteboardItem(), PasteboardItem()});
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(rowNames().size(), 4u);
    EXPECT_EQ(rowNames().back(), "Untitled") << "two empty ones do";
}

TEST_F(PasteboardTest, aTextWithoutTabOrLineFeedIsAURLAsItStands) {
    open();
    paste("  not a link ");
    EXPECT_EQ(rowNames(), std::vector<std::string>{"Untitled"});
    EXPECT_EQ(controller->outline().itemAtRow(0).itemURL(), Text("  not a link "));
}

TEST_F(PasteboardTest, anEmptyPasteboardPastesNothing) {
    open();
    controller->clipboard().pasteEditMenu();
    EXPECT_TRUE(rowNames().empty());
    EXPECT_EQ(changes(), 0);
}

// Records

TEST_F(PasteboardTest, aRecordNamesTheVeryNode) {
    Bookmark& link = add(makeLink("l"));
    open();
    const std::string record = shared.records.add(NodeRecords::List::Dragged, &link);
    EXPECT_EQ(record.size(), 8u);
    EXPECT_EQ(read({{typed(kItemType), record}}).get(), &link);
}

TEST_F(PasteboardTest, aRecordWhoseNodeIsGoneIsNotFollowed) {
    Bookmark& link = add(makeLink("l"));
    open();
    const std::string record = shared.records.add(NodeRecords::List::Copied, &link);
    shared.records.clear(NodeRecords::List::Copied);
    shared.records.add(NodeRecords::List::Copied, &link);
    EXPECT_FALSE(read({{typed(kItemType), record}}));
    EXPECT_FALSE(read({{typed(kItemType), "12345678"}}));
    EXPECT_FALSE(read({{typed(kItemType), "short"}}));
    const Ref<Bookmark> fallenBack = read({{typed(kItemType), record}, {typed(kStringType), "https://t/"}});
    ASSERT_TRUE(fallenBack);
    EXPECT_EQ(fallenBack->itemURL(), Text("https://t/"));
}

TEST_F(PasteboardTest, recordsOfAnotherProcessAreNotFollowed) {
    Bookmark& link = add(makeLink("Title", "https://l/"));
    open();
    copy({&link});
    SharedState other(application);
    pasteboard.held.set("application/x-xbel", "");
    pasteboard.held.set("chromium/x-bookmark-entries", "");
    const auto items = pasteboardItems(
        pasteboard.held, {.records = other.records, .files = files, .services = base.services()});
    ASSERT_EQ(items.size(), 1u);
    EXPECT_FALSE(items[0].offers(kItemType));
    EXPECT_EQ(*items[0].get(kURLType), "https://l/");
    EXPECT_EQ(*items[0].get(kURLNameType), "Title");
}

// Items

TEST_F(PasteboardTest, oneBookmarkOfSafariIsABookmark) {
    const Ref<Bookmark> one =
        read({{typed(kSafariStatisticsType), statistics(1, 0)},
              {typed(kSafariListType), plist("<array>" + entry("T", "u:1") + "</array>")}});
    ASSERT_TRUE(one);
    EXPECT_FALSE(one->isFolder());
    EXPECT_EQ(one->itemName(), Text("T"));
    EXPECT_EQ(one->itemURL(), Text("u:1"));
    const Ref<Bookmark> untitled =
        read({{typed(kSafariStatisticsType), statistics(1, 0)},
              {typed(kSafariListType), plist("<array>" + entry(nullptr, "u:1") + "</array>")}});
    EXPECT_EQ(untitled->itemName(), Text("Untitled"));
}

TEST_F(PasteboardTest, severalBookmarksOfSafariAreAFolder) {
    const std::string list =
        plist("<array>" + entry("A", "u:1") + entry("", "u:2") + entry(nullptr, nullptr) +
              entry(nullptr, "u:3") + entry("D", nullptr) + "</array>");
    for (const std::string& counts : {statistics(4, 0), statistics(1, 1), std::string("damaged")}) {
        const Ref<Bookmark> folder =
            read({{typed(kSafariStatisticsType), counts}, {typed(kSafariListType), list}});
        ASSERT_TRUE(folder && folder->isFolder());
        EXPECT_EQ(folder->itemName(), Text("Untitled"));
        std::vector<std::string> children;
        for (const Bookmark* child = folder->getChild(); child; child = child->nextBookmark())
            children.push_back(child->itemName().string() + " " +
                               (child->itemURL().isNull() ? "null" : child->itemURL().string()));
        EXPECT_EQ(children, (std::vector<std::string>{"A u:1", "Untitled u:2", "Untitled u:3", "D null"}));
    }
}

TEST_F(PasteboardTest, damagedListsCountAsMissing) {
    for (const std::string& list : {std::string("damaged"), plist("<dict/>"), plist("<array/>")}) {
        const Ref<Bookmark> node = read({{typed(kSafariStatisticsType), statistics(1, 0)},
                                         {typed(kSafariListType), list},
                                         {typed(kURLType), "https://u/"}});
        ASSERT_TRUE(node);
        EXPECT_EQ(node->itemURL(), Text("https://u/"));
    }
}

TEST_F(PasteboardTest, aFileIsNamedWithItsExtension) {
    const Ref<Bookmark> file = read(
        {{typed(kFileURLType), "file:///tmp/a%20b/n%C3%B6te.txt"}, {typed(kURLType), "https://not-this/"}});
    ASSERT_TRUE(file);
    EXPECT_EQ(file->itemName(), Text("nöte.txt"));
    EXPECT_EQ(file->itemURL(), Text("file:///tmp/a b/nöte.txt"));
    const Ref<Bookmark> folder = read({{typed(kFileURLType), "file:///tmp/folder/"}});
    EXPECT_EQ(folder->itemName(), Text("folder"));
    EXPECT_EQ(folder->itemURL(), Text("file:///tmp/folder"));
    EXPECT_EQ(read({{typed(kFileURLType), "file:///"}})->itemURL(), Text("file:///"));
}

TEST_F(PasteboardTest, aLinkFileGivesTheNameAndTheURLTypeTheURL) {
    const Ref<Bookmark> link = read({{typed(kFileURLType), "file:///tmp/My%20Page.webloc"},
                                     {typed(kURLNameType), "not this"},
                                     {typed(kURLType), "https://page/"}});
    EXPECT_EQ(link->itemName(), Text("My Page"));
    EXPECT_EQ(link->itemURL(), Text("https://page/"));
    const Ref<Bookmark> mail =
        read({{typed(kFileURLType), "file:///tmp/x.mailloc"}, {typed(kStringType), "mailto:a@b"}});
    EXPECT_EQ(mail->itemName(), Text("x"));
    EXPECT_EQ(mail->itemURL(), Text("mailto:a@b"));
    EXPECT_FALSE(read({{typed(kFileURLType), "file:///tmp/x.webloc"}}));
}

TEST_F(PasteboardTest, theTitleGoesWithTheURLAndTextIsAURL) {
    EXPECT_EQ(read({{typed(kURLNameType), "T"}, {typed(kURLType), "u:1"}})->itemName(), Text("T"));
    EXPECT_EQ(read({{typed(kURLType), "u:1"}, {typed(kStringType), "u:2"}})->itemURL(), Text("u:1"));
    EXPECT_EQ(read({{typed(kURLNameType), "T"}, {typed(kStringType), "u:2"}})->itemURL(), Text("u:2"));
    EXPECT_EQ(read({{typed(kStringType), "u:2"}})->itemName(), Text("Untitled"));
    EXPECT_TRUE(grabbed.empty());
}

TEST_F(PasteboardTest, htmlAloneGoesToTheScanner) {
    EXPECT_FALSE(read({{typed(kHTMLType), "<a href=x>y</a>"}}));
    EXPECT_EQ(grabbed, "<a href=x>y</a>");
    EXPECT_FALSE(read({}));
}

TEST_F(PasteboardTest, itemsThatAreNothingAreSkipped) {
    open();
    MimeContent content;
    content.set("text/html", "<p>");
    pasteboard.setContent(content);
    controller->clipboard().pasteEditMenu();
    EXPECT_EQ(application.grabbed, "<p>");
    EXPECT_EQ(changes(), 0);
}

class ServicesTest : public PasteboardTest {
protected:
    bool write(std::vector<std::string_view> types = {kStringType}) {
        return controller->clipboard().writeSelectionToPasteboardTypes(given, types);
    }

    PasteboardItem given = makeItem({{typed(kHTMLType), "of before"}});
};

TEST_F(ServicesTest, theyAreGivenTheCurrentRowsURLAlone) {
    Bookmark& folder = add(makeFolder("f"));
    Bookmark& first = add(makeLink("l", "https://l/"));
    Bookmark& second = add(makeLink("m", "https://m/"));
    open();
    select({&first, &second});
    EXPECT_TRUE(write({kURLType, kStringType}));
    EXPECT_EQ(given, makeItem({{typed(kStringType), "https://m/"}})) << "never several, in no other form";
    select({&folder});
    EXPECT_FALSE(write()) << "a folder has no URL";
    EXPECT_TRUE(given.values().empty());
    select({});
    EXPECT_FALSE(write());
}

TEST_F(ServicesTest, whoWantsNoTextIsGivenNothing) {
    Bookmark& link = add(makeLink("l"));
    open();
    select({&link});
    const PasteboardItem before = given;
    EXPECT_FALSE(write({kURLType}));
    EXPECT_EQ(given, before);
    EXPECT_TRUE(ClipboardCommands::validRequestorForSendTypeReturnType(kStringType, kHTMLType));
    EXPECT_FALSE(ClipboardCommands::validRequestorForSendTypeReturnType(kURLType, kStringType));
    EXPECT_FALSE(ClipboardCommands::validRequestorForSendTypeReturnType("", kStringType));
}

TEST_F(ServicesTest, whatTheyGiveBackChangesNothing) {
    Bookmark& link = add(makeLink("l", "https://l/"));
    open();
    select({&link});
    EXPECT_TRUE(
        ClipboardCommands::readSelectionFromPasteboard(makeItem({{typed(kStringType), "https://other/"}})));
    EXPECT_EQ(link.itemURL(), Text("https://l/"));
    EXPECT_EQ(rowNames(), std::vector<std::string>{"l"});
    EXPECT_EQ(changes(), 0);
}

using BookmarkFormTest = PasteboardTest;

TEST_F(BookmarkFormTest, aBookmarkWritesItselfAsTheArchiveOfItsTreeAndReadsThatAgain) {
    const Ref<Bookmark> folder = makeFolder("f");
    folder->addChild(makeLink("l", "https://l/"));
    ASSERT_EQ(writableTypesForPasteboard(), std::vector{kItemType});
    const std::string archive = pasteboardPropertyListForType(*folder, kItemType);
    EXPECT_TRUE(archive.starts_with("bplist00"));
    EXPECT_TRUE(pasteboardPropertyListForType(*folder, kURLType).empty());
    const Ref<Bookmark> again = initWithPasteboardPropertyListOfType(archive, kItemType, base.log);
    ASSERT_TRUE(again);
    EXPECT_NE(again.get(), folder.get());
    EXPECT_EQ(again->itemName(), Text("f"));
    ASSERT_EQ(again->getChildren()->size(), 1u);
    EXPECT_EQ(again->getChildren()->at(0)->itemURL(), Text("https://l/"));
    EXPECT_EQ(base.log.lines, std::vector<std::string>{"initWithPasteboardPropertyList : com.tabulon.item"});
}

TEST_F(BookmarkFormTest, whatIsNoArchiveIsNoBookmark) {
    EXPECT_EQ(readableTypesForPasteboard(), (std::vector{kItemType, kURLType}));
    EXPECT_FALSE(initWithPasteboardPropertyListOfType("https://l/", kURLType, base.log));
    EXPECT_FALSE(initWithPasteboardPropertyListOfType("", kItemType, base.log));
    EXPECT_EQ(base.log.lines.size(), 2u) << "each is logged first";
    EXPECT_EQ(base.log.lines.at(0), "initWithPasteboardPropertyList : public.url");
}

} // namespace
} // namespace tabulon
