// Tests that the document reader accepts every form that a writer of the format produces.
#include "model/ArchiveReader.h"

#include "model/ArchiveWriter.h"
#include "model/TreeWalk.h"
#include "tests/plist/TestPlist.h"

#include <gtest/gtest.h>

#include <limits>

namespace tabulon {
namespace {

using namespace test;

Ref<Bookmark> read(const std::string& bytes) {
    Result<Ref<Bookmark>> master = readDocumentArchive(bytes);
    EXPECT_TRUE(master) << master.error().message;
    return master ? *master : Ref<Bookmark>();
}

// A document whose root contains one link with these keys. `node` is that link, or `nullptr` if reading
// fails.
struct OneLink {
    explicit OneLink(TestArchive& archive, Pairs pairs, Layout layout = {}) {
        const std::int64_t link = archive.addNode(std::move(pairs));
        master = read(archive.document(archive.addFolder("Master", {link}), layout));
        node = master ? master->getChild() : nullptr;
    }
    Ref<Bookmark> master;
    Bookmark* node = nullptr;
};

TEST(ArchiveReader, everyFieldArrives) {
    TestArchive archive;
    const OneLink one(archive, {{"Name", uid(archive.add(ascii("name")))},
                                {"URL", uid(archive.add(ascii("https://a.example/")))},
                                {"Note", uid(archive.add(utf16(u"n\u00F6te \u96EA")))},
                                {"Tags", uid(archive.add(ascii("")))},
                                {"DateAdded", uid(archive.addDate(1.5))},
                                {"DateModified", uid(archive.addDate(-2.25))},
                                {"LastChecked", uid(archive.addDate(0))},
                                {"LastOpened", uid(archive.addDate(1e300))},
                                {"Type", integer(3)},
                                {"Label", integer(11)},
                                {"Flags", integer(15)},
                                {"Status", integer(5)},
                                {"Browser", integer(-7)},
                                {"Folder", boolean(false)},
                                {"OpenFolder", boolean(true)},
                                {"AutoTab", boolean(true)},
                                {"Children", uid(0)}});
    ASSERT_TRUE(one.node);
    EXPECT_EQ(one.node->itemName(), Text("name"));
    EXPECT_EQ(one.node->itemURL(), Text("https://a.example/"));
    EXPECT_EQ(one.node->itemNote(), Text("n\u00F6te \u96EA"));
    EXPECT_EQ(one.node->itemTags(), Text(""));
    EXPECT_EQ(one.node->itemDateAdded(), Date::fromReferenceSeconds(1.5));
    EXPECT_EQ(one.node->itemDateModified(), Date::fromReferenceSeconds(-2.25));
    EXPECT_EQ(one.node->itemLastChecked(), Date::fromReferenceSeconds(0));
    EXPECT_EQ(one.node->itemLastOpened(), Date::fromReferenceSeconds(1e300));
    EXPECT_EQ(one.node->getType(), 3);
    EXPECT_EQ(one.node->getLabel(), 11);
    EXPECT_EQ(one.node->getFlags(), 15);
    EXPECT_EQ(one.node->getStatus(), 5);
    EXPECT_EQ(one.node->itemBrowser(), -7);
    EXPECT_FALSE(one.node->isFolder());
    EXPECT_TRUE(one.node->showHier());
    EXPECT_TRUE(one.node->getAutoTab());
    EXPECT_EQ(one.node->getChildren(), nullptr);
    EXPECT_EQ(one.node->itemIcon(), ItemIcon::MailType);
    EXPECT_EQ(one.node->getParent(), one.master.get());
}

TEST(ArchiveReader, missingKeysAreNullAndZero) {
    TestArchive archive;
    const OneLink one(archive, {});
    ASSERT_TRUE(one.node);
    EXPECT_TRUE(one.node->itemName().isNull());
    EXPECT_TRUE(one.node->itemURL().isNull());
    EXPECT_TRUE(one.node->itemDateAdded().isNull());
    EXPECT_EQ(one.node->getType(), 0);
    EXPECT_EQ(one.node->itemBrowser(), 0);
    EXPECT_FALSE(one.node->isFolder());
    EXPECT_EQ(one.node->itemIcon(), ItemIcon::HttpType);
}

TEST(ArchiveReader, everyWidthOfIntegersAndReferencesAndAnyOrder) {
    for (unsigned width = 0; width <= 4; ++width)
        for (unsigned references = 1; references <= 8; ++references)
            for (unsigned offsets = 2; offsets <= 8; ++offsets) {
                TestArchive archive;
                // Only the label is written with `width`: the file type needs four bytes and the archive's
                // version three.
                const OneLink one(archive,
                                  {{"Label", raw(std::string(1, static_cast<char>(0x10 | width)) +
                                                 std::string((1u << width) - 1, '\0') + '\x07')}},
                                  {references, offsets, 3, 17 * references + offsets});
                ASSERT_TRUE(one.node);
                EXPECT_EQ(one.node->getLabel(), 7) << width << ' ' << references << ' ' << offsets;
            }
}

TEST(ArchiveReader, codesKeepTheirLowEightBits) {
    TestArchive archive;
    const OneLink one(archive,
                      {{"Type", integer(256 + 11)}, {"Label", integer(-1)}, {"Flags", integer(0x1F4)}});
    ASSERT_TRUE(one.node);
    EXPECT_EQ(one.node->getType(), 11);
    EXPECT_EQ(one.node->getLabel(), 255);
    EXPECT_EQ(one.node->getFlags(), 0xF4);
}

TEST(ArchiveReader, numbersServeAsBooleansAndTheReverse) {
    TestArchive archive;
    const OneLink one(archive,
                      {{"OpenFolder", integer(2)}, {"AutoTab", integer(0)}, {"Status", boolean(true)}});
    ASSERT_TRUE(one.node);
    EXPECT_TRUE(one.node->showHier());
    EXPECT_FALSE(one.node->getAutoTab());
    EXPECT_EQ(one.node->getStatus(), 1);
}

// Such values are a sign of damage. If they were read as missing, all nodes that share a value would lose it.
TEST(ArchiveReader, valuesOfTheWrongKindAreRefused) {
    const Pairs wrong = {{"URL", integer(4)},     {"Name", ascii("n")},      {"Tags", array({})},
                         {"Note", boolean(true)}, {"DateModified", real(5)}, {"Type", real(3)},
                         {"Label", ascii("3")},   {"Folder", ascii("YES")},  {"Status", uid(0)}};
    for (const auto& entry : wrong) {
        TestArchive archive;
        EXPECT_FALSE(readDocumentArchive(archive.document(archive.addNode({entry})))) << entry.first;
    }
}

TEST(ArchiveReader, unknownKeysAreIgnored) {
    TestArchive archive;
    const OneLink one(archive,
                      {{"Colour", uid(999)}, {"Name", uid(archive.add(ascii("n")))}, {"Zoom", real(1)}});
    ASSERT_TRUE(one.node);
    EXPECT_EQ(one.node->itemName(), Text("n"));
}

TEST(ArchiveReader, mutableStringsAreObjects) {
    TestArchive archive;
    const std::int64_t kind = archive.addClass({"NSMutableString", "NSString", "NSObject"});
    const std::int64_t text =
        archive.add(dictionary({{"NS.string", utf16(u"m\u00FCtable")}, {"$class", uid(kind)}}));
    const std::int64_t bytes =
        archive.add(dictionary({{"$class", uid(kind)}, {"NS.bytes", data("b\xC3\xBC")}}));
    const OneLink one(archive, {{"Name", uid(text)}, {"URL", uid(bytes)}});
    ASSERT_TRUE(one.node);
    EXPECT_EQ(one.node->itemName(), Text("m\u00FCtable"));
    EXPECT_EQ(one.node->itemURL(), Text("b\u00FC"));
}

TEST(ArchiveReader, sharedTextsAndDatesArriveEverywhere) {
    TestArchive archive;
    const std::string longText(300, 'x');
    const std::int64_t shared = archive.add(ascii(longText));
    const std::int64_t date = archive.addDate(77);
    std::vector<std::int64_t> links;
    for (int i = 0; i < 50; ++i)
        links.push_back(
            archive.addNode({{"Name", uid(shared)}, {"Note", uid(shared)}, {"DateAdded", uid(date)}}));
    const Ref<Bookmark> master = read(archive.document(archive.addFolder("Master", links)));
    ASSERT_TRUE(master);
    ASSERT_EQ(master->getChildren()->size(), 50u);
    for (const Bookmark* node : *master->getChildren()) {
        EXPECT_EQ(node->itemName(), Text(longText));
        EXPECT_TRUE(node->itemNote().sharesBytesWith(master->getLast()->itemName()));
        EXPECT_EQ(node->itemDateAdded(), Date::fromReferenceSeconds(77));
    }
}

TEST(ArchiveReader, oneTextUnderManyNumbersIsReadForAll) {
    // Some writers store equal texts once and refer to them from many objects of the archive.
    for (const std::size_t length : {std::size_t{20}, std::size_t{2000}}) {
        TestArchive archive;
        const Value shared = ascii(std::string(length, 's'));
        std::vector<std::int64_t> links;
        for (int i = 0; i < 2000; ++i) {
            const std::int64_t text = archive.add(shared);
            links.push_back(archive.addNode(
                {{"Name", uid(text)}, {"URL", uid(text)}, {"Note", uid(text)}, {"Tags", uid(text)}}));
        }
        const Ref<Bookmark> master = read(archive.document(archive.addFolder("Master", links)));
        ASSERT_TRUE(master);
        EXPECT_EQ(master->getLast()->itemNote().view().size(), length);
    }
}

TEST(ArchiveReader, oneStringObjectOfManyNodesIsReadForAll) {
    TestArchive archive;
    const std::int64_t kind = archive.addClass({"NSMutableString", "NSString", "NSObject"});
    const std::int64_t text =
        archive.add(dictionary({{"NS.string", ascii("shared")}, {"$class", uid(kind)}}));
    std::vector<std::int64_t> links;
    for (int i = 0; i < 5000; ++i)
        links.push_back(archive.addNode({{"Name", uid(text)}, {"Note", uid(text)}, {"Tags", uid(text)}}));
    EXPECT_TRUE(read(archive.document(archive.addFolder("Master", links))));
}

TEST(ArchiveReader, aKeyGivenTwiceHasItsLastValue) {
    TestArchive archive;
    const OneLink one(archive, {{"Label", integer(1)},
                                {"Label", integer(2)},
                                {"Name", uid(archive.add(ascii("first")))},
                                {"Name", uid(0)}});
    ASSERT_TRUE(one.node);
    EXPECT_EQ(one.node->getLabel(), 2);
    EXPECT_TRUE(one.node->itemName().isNull());
}

TEST(ArchiveReader, versionMayBeABoolean) {
    TestArchive archive;
    const std::int64_t version = archive.addVersion(boolean(true), integer(0x54626C6E));
    EXPECT_TRUE(
        readDocumentArchive(archive.bytes(archive.addArray({version, archive.addFolder("Master", {})}))));
}

TEST(ArchiveReader, emptyDictionaryAsTheFirstNodeIsRefusedQuietly) {
    TestArchive archive;
    EXPECT_FALSE(readDocumentArchive(archive.document(archive.add(dictionary({})))));
}

TEST(ArchiveReader, xmlNumbersThatCannotBeReadAreRefused) {
    for (const char* number :
         {"<integer>99999999999999999999</integer>", "<integer/>", "<integer>5.0</integer>",
          "<real>1e999</real>", "<integer>-18446744073709551611</integer>"}) {
        const std::string xml =
            std::string(
                R"(<plist><dict><key>$version</key><integer>100000</integer><key>$archiver</key>)"
                R"(<string>NSKeyedArchiver</string><key>$top</key><dict><key>root</key><dict><key>CF$UID</key>)"
                R"(<integer>1</integer></dict></dict><key>$objects</key><array><string>$null</string>)"
                R"(<dict><key>$class</key><dict><key>CF$UID</key><integer>2</integer></dict><key>Label</key>)") +
            number +
            R"(<key>Type</key><integer>3</integer></dict><dict><key>$classname</key><string>Bookmark</string></dict>)"
            R"(</array></dict></plist>)";
        EXPECT_FALSE(readNodeArchive(xml)) << number;
    }
}

TEST(ArchiveReader, immutableArraysServeAsChildren) {
    TestArchive archive;
    const std::int64_t link = archive.addNode({});
    const std::int64_t kind = archive.addClass({"NSArray", "NSObject"});
    const std::int64_t list =
        archive.add(dictionary({{"$class", uid(kind)}, {"NS.objects", array({uid(link)})}}));
    const Ref<Bookmark> master =
        read(archive.document(archive.addNode({{"Children", uid(list)}, {"Folder", boolean(true)}})));
    ASSERT_TRUE(master);
    EXPECT_EQ(master->getChildren()->size(), 1u);
}

TEST(ArchiveReader, longerAncestriesAndSubclassesAreNodes) {
    TestArchive archive;
    const std::int64_t longer = archive.addClass({"Bookmark", "TreeItem", "Base", "NSObject"});
    const std::int64_t special = archive.addClass({"SpecialBookmark", "Bookmark", "NSObject"});
    const std::int64_t second = archive.addClass({"Bookmark2", "Bookmark", "NSObject"});
    std::vector<std::int64_t> links;
    for (const std::int64_t kind : {longer, special, second})
        links.push_back(archive.add(dictionary({{"Label", integer(4)}, {"$class", uid(kind)}})));
    const Ref<Bookmark> master = read(archive.document(archive.addFolder("Master", links)));
    ASSERT_TRUE(master);
    for (const Bookmark* node : *master->getChildren()) {
        EXPECT_EQ(node->getLabel(), 4);
        EXPECT_FALSE(node->isBookmark2());
    }
}

TEST(ArchiveReader, folderWithoutChildListStaysDifferentFromEmptyFolder) {
    TestArchive archive;
    const std::int64_t without = archive.addNode({{"Folder", boolean(true)}});
    const std::int64_t empty = archive.addFolder("empty", {});
    const Ref<Bookmark> master = read(archive.document(archive.addFolder("Master", {without, empty})));
    ASSERT_TRUE(master);
    const auto again = readDocumentArchive(writeDocumentArchive(*master));
    ASSERT_TRUE(again);
    for (const Ref<Bookmark>& tree : {master, *again}) {
        const Bookmark* first = tree->getChild();
        EXPECT_TRUE(first->isFolder());
        EXPECT_EQ(first->getChildren(), nullptr);
        EXPECT_FALSE(first->hasChildren());
        EXPECT_EQ(first->itemIcon(), ItemIcon::Folder);
        ASSERT_NE(first->nextBookmark()->getChildren(), nullptr);
        EXPECT_TRUE(first->nextBookmark()->getChildren()->empty());
    }
}

TEST(ArchiveReader, linkWithChildrenKeepsThem) {
    TestArchive archive;
    const std::int64_t inner = archive.addNode({{"Label", integer(2)}});
    const OneLink one(archive, {{"Children", uid(archive.addArray({inner}))}});
    ASSERT_TRUE(one.node);
    EXPECT_FALSE(one.node->isFolder());
    ASSERT_TRUE(one.node->hasChildren());
    const auto again = readDocumentArchive(writeDocumentArchive(*one.master));
    ASSERT_TRUE(again);
    EXPECT_EQ((*again)->getChild()->getChild()->getLabel(), 2);
    EXPECT_EQ((*again)->getChild()->getChild()->getParent(), (*again)->getChild());
}

TEST(ArchiveReader, sortOrderIsIgnored) {
    TestArchive archive;
    const std::int64_t version =
        archive.add(dictionary({{"SortOrder", integer(7)},
                                {"FileType", integer(0x54626C6E)},
                                {"Version", integer(1)},
                                {"$class", uid(archive.addClass({"FileVersion"}))}}));
    const std::int64_t master = archive.addFolder("x", {});
    EXPECT_TRUE(readDocumentArchive(archive.bytes(archive.addArray({version, master}))));
}

TEST(ArchiveReader, typesAreNotDerivedAnew) {
    TestArchive archive;
    const OneLink one(archive, {{"URL", uid(archive.add(ascii("http://a.example/")))}, {"Type", integer(4)}});
    ASSERT_TRUE(one.node);
    EXPECT_EQ(one.node->getType(), 4);
    EXPECT_EQ(one.node->itemIcon(), ItemIcon::NewsType);
}

TEST(ArchiveReader, loneSurrogatesBecomeReplacementCharacters) {
    TestArchive archive;
    const OneLink one(archive, {{"Name", uid(archive.add(utf16(u"a\xD83D"
                                                               u"b\xDE00")))},
                                {"URL", uid(archive.add(utf16(u"\xD83D\xDE00")))}});
    ASSERT_TRUE(one.node);
    EXPECT_EQ(one.node->itemName(), Text("a\uFFFDb\uFFFD"));
    EXPECT_EQ(one.node->itemURL(), Text("\U0001F600"));
}

TEST(ArchiveReader, xmlFormOfThePropertyList) {
    const std::string xml = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>
<key>$version</key><integer>100000</integer>
<key>$archiver</key><string>NSKeyedArchiver</string>
<key>$top</key><dict><key>root</key><dict><key>CF$UID</key><integer>1</integer></dict></dict>
<key>$objects</key><array>
<string>$null</string>
<dict><key>$class</key><dict><key>CF$UID</key><integer>6</integer></dict>
<key>NS.objects</key><array><dict><key>CF$UID</key><integer>2</integer></dict><dict><key>CF$UID</key><integer>3</integer></dict></array></dict>
<dict><key>$class</key><dict><key>CF$UID</key><integer>4</integer></dict><key>FileType</key><integer>1415736430</integer><key>Version</key><integer>1</integer></dict>
<dict><key>$class</key><dict><key>CF$UID</key><integer>5</integer></dict><key>Folder</key><true/><key>Browser</key><integer>-3</integer>
<key>Name</key><dict><key>CF$UID</key><integer>7</integer></dict><key>DateAdded</key><dict><key>CF$UID</key><integer>8</integer></dict>
<key>Note</key><dict><key>CF$UID</key><integer>10</integer></dict></dict>
<dict><key>$classname</key><string>FileVersion</string><key>$classes</key><array><string>FileVersion</string></array></dict>
<dict><key>$classname</key><string>Bookmark</string><key>$classes</key><array><string>Bookmark</string></array></dict>
<dict><key>$classname</key><string>NSArray</string><key>$classes</key><array><string>NSArray</string></array></dict>
<string>a &amp; <![CDATA[<b>]]> é</string>
<dict><key>$class</key><dict><key>CF$UID</key><integer>9</integer></dict><key>NS.time</key><real>12.5</real></dict>
<dict><key>$classname</key><string>NSDate</string><key>$classes</key><array><string>NSDate</string></array></dict>
<string>  </string>
</array></dict></plist>)";
    const Ref<Bookmark> master = read(xml);
    ASSERT_TRUE(master);
    EXPECT_EQ(master->itemName(), Text("a & <b> é"));
    EXPECT_EQ(master->itemNote(), Text("  "));
    EXPECT_TRUE(master->isFolder());
    EXPECT_EQ(master->itemBrowser(), -3);
    EXPECT_EQ(master->itemDateAdded(), Date::fromReferenceSeconds(12.5));
}

TEST(ArchiveReader, nestingOfTwoHundredThousandFoldersReadsAndWrites) {
    constexpr int kDepth = 200000;
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    Bookmark* folder = master.get();
    for (int i = 0; i < kDepth; ++i) {
        Ref<Bookmark> child = Bookmark::initEmpty();
        child->makeParent();
        Bookmark* next = child.get();
        folder->addChild(std::move(child));
        folder = next;
    }
    const std::string bytes = writeDocumentArchive(*master);
    const Ref<Bookmark> again = read(bytes);
    ASSERT_TRUE(again);
    int depth = 0;
    for (const Bookmark* each = again->getChild(); each; each = each->getChild())
        ++depth;
    EXPECT_EQ(depth, kDepth);
    EXPECT_EQ(writeDocumentArchive(*again), bytes);
}

TEST(ArchiveReader, datesAreKeptToTheBit) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    const std::vector<double> seconds = {0.0,
                                         -0.0,
                                         0.1,
                                         1e-320,
                                         std::numeric_limits<double>::infinity(),
                                         std::bit_cast<double>(0x7FF8000000000123u),
                                         18446744073709551615.0,
                                         -63113904000.0};
    for (const double each : seconds) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->setItemDateAdded(Date::fromReferenceSeconds(each));
        master->addChild(node);
    }
    const Ref<Bookmark> again = read(writeDocumentArchive(*master));
    ASSERT_TRUE(again);
    for (std::size_t i = 0; i < seconds.size(); ++i)
        EXPECT_EQ(
            std::bit_cast<std::uint64_t>(again->getChildren()->at(i)->itemDateAdded().referenceSeconds()),
            std::bit_cast<std::uint64_t>(seconds[i]));
}

} // namespace
} // namespace tabulon
