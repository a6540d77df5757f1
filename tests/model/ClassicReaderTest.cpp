// Tests the reader of classic documents with files that are built byte by byte.
#include "model/ClassicReader.h"

#include "base/Utf8.h"
#include "model/Document.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/model/TreeShape.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

// One record in the layout of the file. The bytes that the reader ignores have arbitrary values.
struct Record {
    std::string name;
    std::string url;
    std::string note;
    bool hasName = false;
    bool hasURL = false;
    bool hasNote = false;
    std::uint8_t type = 0;
    std::uint8_t folder = 0;
    std::uint8_t display = 0;
    std::uint8_t flags = 0;
    bool sibling = false;
    bool children = false;
    std::uint32_t added = 0;
    std::uint32_t checked = 0;

    static std::string word(std::uint32_t value) {
        return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
                static_cast<char>(value)};
    }
    static std::string presence(bool present) { return word(present ? 0x00010000 : 0); }
    static std::string longText(const std::string& text) {
        return std::string{static_cast<char>(text.size() >> 8), static_cast<char>(text.size())} + text + '\0';
    }

    std::string bytes() const {
        std::string out = presence(hasName) + presence(hasURL) + "\xAA\xAA\xAA\xAA\xAA\xAA";
        out += static_cast<char>(hasNote ? note.size() >> 8 : 0);
        out += static_cast<char>(type);
        out += static_cast<char>(folder);
        out += static_cast<char>(display);
        out += '\x55';
        out += static_cast<char>(flags);
        out += word(0xDEADBEEF) + presence(sibling) + presence(children) + word(0xDEADBEEF) +
               presence(hasNote) + word(added) + word(checked);
        if (hasName)
            out += longText(name);
        if (hasURL)
            out += longText(url);
        if (hasNote)
            out += static_cast<char>(note.size()) + note + '\0';
        return out;
    }
};

Record named(const std::string& name) {
    Record record;
    record.hasName = true;
    record.name = name;
    return record;
}

std::string header(std::uint16_t version = 3, std::uint16_t count = 1) {
    return std::string{static_cast<char>(version >> 8), static_cast<char>(version)} + "xxxxxxxx" +
           std::string{static_cast<char>(count >> 8), static_cast<char>(count)} + "yyyyyyyy";
}

class ClassicTest : public testing::Test {
protected:
    Ref<Bookmark> read(const std::string& bytes) {
        Result<Ref<Bookmark>> master = readClassic(bytes, fake.services());
        EXPECT_TRUE(master) << master.error().message;
        return master ? *master : Ref<Bookmark>();
    }
    Error refused(const std::string& bytes) {
        const Result<Ref<Bookmark>> master = readClassic(bytes, fake.services());
        EXPECT_FALSE(master);
        if (master)
            return {};
        EXPECT_EQ(master.error().domain, ErrorDomain::OSStatus);
        EXPECT_EQ(master.error().code, 256);
        EXPECT_FALSE(master.error().message.empty());
        return master.error();
    }
    FakeBaseServices fake;
};

TEST_F(ClassicTest, oneLinkWithEverything) {
    Record record = named("Name");
    record.hasURL = record.hasNote = true;
    record.url = "ftp://a.example/";
    record.note = "note";
    record.type = kFTPType;
    record.flags = 0x5A;
    record.display = 0x23;
    record.added = 3061152000u + 100;
    record.checked = 0xFFFFFFFF;
    const Ref<Bookmark> master = read(header() + record.bytes());
    EXPECT_EQ(master->itemName(), Text("Master"));
    EXPECT_TRUE(master->showHier());
    ASSERT_EQ(master->getChildren()->size(), 1u);
    const Bookmark& node = *master->getChild();
    EXPECT_EQ(node.itemName(), Text("Name"));
    EXPECT_EQ(node.itemURL(), Text("ftp://a.example/"));
    EXPECT_EQ(node.itemNote(), Text("note"));
    EXPECT_EQ(node.getType(), kFTPType);
    EXPECT_EQ(node.itemIcon(), ItemIcon::FtpType);
    EXPECT_EQ(node.getFlags(), 0xA);
    EXPECT_EQ(node.getStatus(), 5);
    EXPECT_TRUE(node.showHier());
    EXPECT_TRUE(node.getAutoTab());
    EXPECT_EQ(node.getLabel(), 6);
    EXPECT_EQ(node.itemBrowser(), 3);
    EXPECT_EQ(node.itemDateAdded(), Date::fromReferenceSeconds(100));
    EXPECT_EQ(node.itemLastChecked(), Date::fromReferenceSeconds(4294967295.0 - 3061152000.0));
    EXPECT_EQ(node.getParent(), master.get());
    EXPECT_FALSE(node.isFolder());
}

TEST_F(ClassicTest, displayByte0x23IsExpandedAutoTabLabel6AndBrowser3) {
    Record record = named("n");
    record.display = 0x23;
    const Ref<Bookmark> master = read(header() + record.bytes());
    const Bookmark& node = *master->getChild();
    EXPECT_TRUE(node.showHier());
    EXPECT_TRUE(node.getAutoTab());
    EXPECT_EQ(node.getLabel(), 6);
    EXPECT_EQ(node.itemBrowser(), 3);
}

TEST_F(ClassicTest, flagsByteIsSplitIntoFlagsAndStatus) {
    Record record = named("n");
    record.flags = 0xF3;
    const Ref<Bookmark> master = read(header() + record.bytes());
    const Bookmark& node = *master->getChild();
    EXPECT_EQ(node.getFlags(), 3);
    EXPECT_EQ(node.getStatus(), 15);
}

TEST_F(ClassicTest, emptyDataAndHeadersBelowTwentyBytesAreRefusedWithoutAnAlertOfTheirOwn) {
    for (std::size_t size = 0; size < 20; ++size)
        EXPECT_EQ(refused(header().substr(0, size)).title, "") << size;
    refused(header()); // no record follows
}

TEST_F(ClassicTest, addedDateOfZeroIsTheTimeOfReading) {
    const Ref<Bookmark> master = read(header() + named("n").bytes());
    EXPECT_EQ(master->getChild()->itemDateAdded(), fake.now());
    EXPECT_TRUE(master->getChild()->itemLastChecked().isNull());
}

TEST_F(ClassicTest, noteOfThreeHundredBytesHasItsLengthSplit) {
    Record record = named("n");
    record.hasNote = true;
    record.note = std::string(300, 'x');
    const std::string bytes = record.bytes();
    EXPECT_EQ(bytes[14], '\x01');
    EXPECT_EQ(bytes[48 + 2 + 1 + 1], '\x2C');
    Record after = named("after");
    record.sibling = true;
    const Ref<Bookmark> master = read(header() + record.bytes() + after.bytes());
    EXPECT_EQ(master->getChild()->itemNote(), Text(std::string(300, 'x')));
    EXPECT_EQ(master->getLast()->itemName(), Text("after"));
}

TEST_F(ClassicTest, textsOfLengthZeroStayNullAndTheirZeroByteIsSkipped) {
    Record record = named("");
    record.hasURL = true;
    record.url = "u";
    const Ref<Bookmark> master = read(header() + record.bytes());
    EXPECT_TRUE(master->getChild()->itemName().isNull());
    EXPECT_EQ(master->getChild()->itemURL(), Text("u"));
}

TEST_F(ClassicTest, textsEndAtTheirFirstZeroByte) {
    Record record = named(std::string("ab\0cd", 5));
    record.hasURL = true;
    record.url = std::string("\0x", 2);
    const Ref<Bookmark> master = read(header() + record.bytes());
    EXPECT_EQ(master->getChild()->itemName(), Text("ab"));
    EXPECT_EQ(master->getChild()->itemURL(), Text(""));
    EXPECT_FALSE(master->getChild()->itemURL().isNull());
}

TEST_F(ClassicTest, recordsAreNestedDepthFirst) {
    Record folder = named("folder");
    folder.folder = 1;
    folder.children = true;
    folder.sibling = true;
    Record inner = named("inner");
    inner.sibling = true;
    const Ref<Bookmark> master =
        read(header() + folder.bytes() + inner.bytes() + named("inner2").bytes() + named("after").bytes());
    ASSERT_EQ(master->getChildren()->size(), 2u);
    EXPECT_EQ(master->getChild()->getChildren()->size(), 2u);
    EXPECT_EQ(master->getChild()->getLast()->itemName(), Text("inner2"));
    EXPECT_EQ(master->getLast()->itemName(), Text("after"));
}

TEST_F(ClassicTest, childrenMakeAFolderWithoutTheFlag) {
    Record record = named("f");
    record.children = true;
    const Ref<Bookmark> master = read(header() + record.bytes() + named("x").bytes());
    EXPECT_TRUE(master->getChild()->isFolder());
    EXPECT_EQ(master->getChild()->itemIcon(), ItemIcon::Folder);
}

TEST_F(ClassicTest, emptyFolderIsAFolderWithTheIconOfItsType) {
    Record record = named("f");
    record.folder = 0x80;
    record.type = kMailType;
    const Ref<Bookmark> master = read(header() + record.bytes());
    EXPECT_TRUE(master->getChild()->isFolder());
    EXPECT_EQ(master->getChild()->itemIcon(), ItemIcon::MailType);
    ASSERT_NE(master->getChild()->getChildren(), nullptr);
}

TEST_F(ClassicTest, macRomanUnlessTheCountryIsJapan) {
    const std::string mac = header() + named("caf\x8E \xA5").bytes();
    EXPECT_EQ(read(mac)->getChild()->itemName(), Text("café •"));
    const std::string japanese = header() + named("\x93\xFA\x96\x7B \xB1").bytes();
    for (const char* locale : {"ja_JP", "en_JP"}) {
        fake.texts = EnglishLocalization(locale);
        EXPECT_EQ(read(japanese)->getChild()->itemName(), Text("日本 ｱ")) << locale;
    }
    fake.texts = EnglishLocalization("ja");
    EXPECT_EQ(read(mac)->getChild()->itemName(), Text("café •"));
}

TEST_F(ClassicTest, asciiStandsForItselfInShiftJISToo) {
    fake.texts = EnglishLocalization("ja_JP");
    std::string ascii;
    for (char c = 1; c > 0; ++c)
        ascii += c;
    EXPECT_EQ(read(header() + named(ascii).bytes())->getChild()->itemName(), Text(ascii));
}

TEST_F(ClassicTest, undecodableBytesBecomeReplacementCharacters) {
    fake.texts = EnglishLocalization("ja_JP");
    const Ref<Bookmark> master = read(header() + named("a\xFF\x93").bytes());
    const std::string name = master->getChild()->itemName().string();
    EXPECT_EQ(name.substr(0, 4), "a\uFFFD");
    EXPECT_TRUE(isValidUtf8(name));
}

TEST_F(ClassicTest, headerWithoutBookmarksHasItsAlert) {
    const Error error = refused(header(3, 0) + named("n").bytes());
    EXPECT_EQ(error.title, "File Read Error");
    EXPECT_EQ(error.message, "This document does not contain any bookmarks.");
}

TEST_F(ClassicTest, highVersionHasItsAlert) {
    const Error error = refused(header(4) + named("n").bytes());
    EXPECT_EQ(error.title, "File Open Error");
    EXPECT_EQ(error.message, "The version of this file format is too high for this application.");
    EXPECT_TRUE(readClassic(header(0xFFFF) + named("n").bytes(), fake.services()));
}

TEST_F(ClassicTest, truncatedAnywhereIsRefused) {
    Record folder = named("folder");
    folder.children = folder.sibling = true;
    folder.hasURL = folder.hasNote = true;
    folder.url = "url";
    folder.note = "note";
    const std::string whole = header() + folder.bytes() + named("in").bytes() + named("last").bytes();
    ASSERT_TRUE(readClassic(whole, fake.services()));
    for (std::size_t size = 0; size < whole.size(); ++size)
        refused(whole.substr(0, size));
}

TEST_F(ClassicTest, aChainThatWasCutShortIsRefused) {
    Record first = named("a");
    first.sibling = true;
    Record folder = named("f");
    folder.children = folder.sibling = true;
    const std::string whole =
        header() + first.bytes() + folder.bytes() + named("in").bytes() + named("last").bytes();
    const std::size_t nodes = test::shapeOf(*read(whole)).size();
    for (std::size_t bit = 8 * 20; bit < 8 * whole.size(); ++bit) {
        std::string bytes = whole;
        bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ 1 << bit % 8);
        const auto master = readClassic(bytes, fake.services());
        EXPECT_TRUE(!master || test::shapeOf(**master).size() == nodes) << "byte " << bit / 8;
    }
    EXPECT_TRUE(readClassic(whole + std::string(100, '\0'), fake.services())) << "padding";
}

TEST_F(ClassicTest, chainsThatNeverEndAreRefused) {
    Record record;
    record.sibling = true;
    std::string bytes = header();
    for (int i = 0; i < 1000; ++i)
        bytes += record.bytes();
    refused(bytes);
    record.children = true;
    for (int i = 0; i < 100000; ++i)
        bytes += record.bytes();
    refused(bytes);
}

TEST_F(ClassicTest, twoHundredThousandLevelsAreRead) {
    Record record;
    record.children = true;
    const std::string one = record.bytes();
    std::string bytes = header();
    for (int i = 0; i < 200000; ++i)
        bytes += one;
    bytes += Record().bytes();
    int depth = 0;
    const Ref<Bookmark> master = read(bytes);
    for (const Bookmark* node = master->getChild(); node; node = node->getChild())
        ++depth;
    EXPECT_EQ(depth, 200001);
}

TEST_F(ClassicTest, randomBytesNeverLeadOutOfTheData) {
    std::mt19937 random(5);
    for (int i = 0; i < 3000; ++i) {
        std::string bytes = header();
        const std::size_t size = random() % 400;
        for (std::size_t j = 0; j < size; ++j)
            bytes += static_cast<char>(random() % 3 ? 0 : random());
        (void)readClassic(std::string(bytes), fake.services());
    }
}

TEST_F(ClassicTest, documentReadsItAndWritesTheCurrentFormat) {
    Document document(fake.services());
    ASSERT_TRUE(document.readFromDataOfType(header() + named("n").bytes(), "some.other.type"));
    EXPECT_EQ(document.getMaster().getChild()->getDocument(), &document);
    EXPECT_EQ(document.fileType(), kDocumentType);
    const std::string written = document.dataOfType(kDocumentType);
    EXPECT_TRUE(written.starts_with("bplist00"));
    EXPECT_FALSE(document.readFromDataOfType(std::string("\0\1", 2), kDocumentType));
    EXPECT_EQ(document.getMaster().getChild()->itemName(), Text("n"));
}

} // namespace
} // namespace tabulon
