// Tests the XBEL reader rule by rule.
#include "formats/import/XBELReader.h"

#include "formats/export/XBEL.h"
#include "formats/import/XBELDates.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/CountingProgress.h"
#include "tests/formats/TreeText.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tabulon {
namespace {

const std::string kStart = "<?xml version=\"1.0\"?>\n<xbel version=\"1.0\">";

class XBELReader : public testing::Test {
protected:
    Ref<Bookmark> readFile(const std::string& file) {
        Result<Ref<Bookmark>> tree = readXBEL(file, {fakes.services()});
        EXPECT_TRUE(tree) << file;
        return tree ? *std::move(tree) : Bookmark::initEmpty();
    }
    Ref<Bookmark> read(const std::string& content) { return readFile(kStart + content + "</xbel>"); }
    /// Returns the only node of the file. Fails the test if the file contains any other number of nodes.
    Ref<Bookmark> readOne(const std::string& content) {
        const Ref<Bookmark> root = read(content);
        EXPECT_TRUE(root->hasChildren() && root->getChildren()->size() == 1) << content;
        return root->hasChildren() ? Ref<Bookmark>(root->getChild()) : Bookmark::initEmpty();
    }
    static std::size_t count(const Bookmark& folder) {
        return folder.getChildren() ? folder.getChildren()->size() : 0;
    }

    FakeBaseServices fakes;
};

TEST_F(XBELReader, bookmarkWithEverything) {
    const Ref<Bookmark> link =
        readOne("<bookmark href=\"https://example.org/?a=1&amp;b\" "
                "added=\"2020-05-01T10:20:30+02:00\" modified=\"2020-05-01T00:00:00Z\" "
                "visited=\"2020-05-01T00:00:00Z\"><title>A &lt;b&gt;</title>"
                "<desc>two\nlines</desc></bookmark>");
    EXPECT_EQ(link->itemURL().view(), "https://example.org/?a=1&b");
    EXPECT_EQ(link->itemName().view(), "A <b>");
    EXPECT_EQ(link->itemNote().view(), "two\nlines");
    EXPECT_EQ(link->itemDateAdded().unixSeconds(), 1588321230);
    EXPECT_EQ(link->itemDateModified().unixSeconds(), 1588291200);
    EXPECT_TRUE(link->itemLastOpened().isNull());
    EXPECT_EQ(link->getType(), 0);
    EXPECT_FALSE(link->isFolder());
}

TEST_F(XBELReader, bookmarkWithNothingHasNothing) {
    const Ref<Bookmark> link = readOne("<bookmark/>");
    EXPECT_TRUE(link->itemURL().isNull());
    EXPECT_TRUE(link->itemName().isNull()) << "no substitute for a missing title";
    EXPECT_TRUE(link->itemNote().isNull());
    EXPECT_TRUE(link->itemTags().isNull());
    EXPECT_TRUE(link->itemDateAdded().isNull());
}

TEST_F(XBELReader, theFirstTopLevelNodeIsPassedOver) {
    EXPECT_FALSE(readXBEL("<xbel><bookmark/></xbel>", {fakes.services()})) << "xbel is node 0";
    EXPECT_EQ(count(*readFile("<!DOCTYPE xbel><xbel><bookmark/></xbel>")), 1u);
    EXPECT_EQ(count(*readFile("<?xml version=\"1.0\"?><!DOCTYPE xbel><!-- c --><xbel><bookmark/></xbel>")),
              1u);
    EXPECT_EQ(count(*readFile("<!-- c --><xbel><bookmark/></xbel>")), 1u);
    EXPECT_EQ(count(*readFile("<?pi x?><xbel><bookmark/></xbel>")), 1u);
    EXPECT_EQ(count(*readFile("<xbel><bookmark/></xbel><!-- c -->")), 0u);
}

TEST_F(XBELReader, whatFollowsTheRootElementIsNeverRead) {
    EXPECT_EQ(count(*readFile("<!-- c --><bookmark/><xbel><bookmark/><bookmark/></xbel><bookmark/>")), 3u);
    EXPECT_EQ(count(*readFile("<!-- c --><xbel/><bookmark/>")), 0u) << "an empty one ends the walk";
}

TEST_F(XBELReader, titleAtTheTopNamesTheRoot) {
    EXPECT_EQ(read("<title>Mine</title>")->itemName().view(), "Mine");
    EXPECT_EQ(read("")->itemName().view(), "Master");
}

TEST_F(XBELReader, foldersKeepTheirOrder) {
    const Ref<Bookmark> root =
        read("<folder folded=\"yes\"><title>F</title><desc>no note</desc><info><metadata "
             "owner=\"x/tags\">no tags</metadata></info><bookmark/><folder/><separator/></folder>"
             "<bookmark><title>last</title></bookmark>");
    ASSERT_EQ(count(*root), 2u);
    const Bookmark& folder = *root->getChild();
    EXPECT_TRUE(folder.isFolder());
    EXPECT_EQ(folder.itemName().view(), "F");
    EXPECT_TRUE(folder.itemNote().isNull());
    EXPECT_TRUE(folder.itemTags().isNull());
    EXPECT_FALSE(folder.showHier()) << "as a new folder is";
    ASSERT_EQ(count(folder), 3u);
    EXPECT_TRUE(folder.getChildren()->at(1)->isFolder());
    EXPECT_TRUE(folder.getChildren()->at(1)->itemName().isNull());
    EXPECT_TRUE(folder.getLast()->isSeparator());
    EXPECT_EQ(root->getLast()->itemName().view(), "last");
}

TEST_F(XBELReader, onlyTheFirstTextOfAnElementCounts) {
    EXPECT_TRUE(readOne("<bookmark><title><![CDATA[x]]></title></bookmark>")->itemName().isNull());
    EXPECT_TRUE(readOne("<bookmark><title><!-- c -->x</title></bookmark>")->itemName().isNull());
    EXPECT_TRUE(readOne("<bookmark><title><b>x</b></title></bookmark>")->itemName().isNull());
    EXPECT_EQ(readOne("<bookmark><title>x<b>y</b>z</title></bookmark>")->itemName().view(), "x");
}

TEST_F(XBELReader, tagsComeFromTheFirstElementOfInfoIfItsOwnerEndsInTags) {
    const auto tags = [this](const std::string& info) {
        return readOne("<bookmark><info>" + info + "</info></bookmark>")->itemTags();
    };
    EXPECT_EQ(tags("<metadata owner=\"https://x/tags\">a &amp; b</metadata>").view(), "a & b");
    EXPECT_EQ(tags("<!-- c --><other owner=\"tags\">a</other>").view(), "a");
    EXPECT_TRUE(tags("<metadata owner=\"https://x/mytags\">a</metadata>").isNull());
    EXPECT_TRUE(tags("<metadata owner=\"https://x/tags/\">a</metadata>").isNull());
    EXPECT_TRUE(tags("<metadata owner=\"y\"/><metadata owner=\"https://x/tags\">a</metadata>").isNull());
    EXPECT_TRUE(tags("<metadata owner=\"https://x/tags\"/>").isNull());
}

TEST_F(XBELReader, namesAreCaseSensitiveAndStrangersIgnored) {
    EXPECT_EQ(count(*read("<Bookmark/><alias ref=\"x\"><bookmark/></alias><info><bookmark/></info>")), 0u);
}

TEST_F(XBELReader, datesThatDoNotFitAreNone) {
    EXPECT_EQ(dateOfXBEL("2020-05-01T10:20:30+02:00").unixSeconds(), 1588321230);
    EXPECT_EQ(dateOfXBEL("2020-05-01T10:20:30-02:30").unixSeconds(), 1588321230 + 4.5 * 3600);
    EXPECT_EQ(dateOfXBEL("1970-01-01T00:00:00Z").unixSeconds(), 0);
    for (const char* text :
         {"", "2020-05-01T10:20:30", "2020-05-01", "2020-13-01T10:20:30Z", "2020-02-30T10:20:30Z",
          "2020-05-01T25:20:30Z", "x", "2020-05-01T10:20:30Zx", "2020/05/01T10:20:30Z"})
        EXPECT_TRUE(dateOfXBEL(text).isNull()) << text;
}

TEST_F(XBELReader, unusualSpellingsOfAFittingDateAreRead) {
    EXPECT_EQ(dateOfXBEL("2020-05-01T10:20:30+0200").unixSeconds(), 1588321230);
    EXPECT_EQ(dateOfXBEL("1500-01-01T00:00:00Z").unixSeconds(), -14830992000)
        << "in the calendar of that time";
    EXPECT_TRUE(dateOfXBEL("2020-5-1T10:20:30Z").isNull());
}

TEST_F(XBELReader, whatIsNoXMLIsRefused) {
    for (const char* text :
         {"", "text", "<?xml version=\"1.0\"?><xbel>", "<?xml version=\"1.0\"?>", "<a></b>"})
        EXPECT_FALSE(readXBEL(text, {fakes.services()})) << text;
}

TEST_F(XBELReader, encodingsAsXMLHasThem) {
    EXPECT_EQ(readFile("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><xbel><title>\xE9</title></xbel>")
                  ->itemName()
                  .view(),
              "é");
    EXPECT_EQ(readFile("\xEF\xBB\xBF<?xml version=\"1.0\"?><xbel><title>é</title></xbel>")->itemName().view(),
              "é");
    EXPECT_EQ(read("<title>\xFF</title>")->itemName().view(), "\xEF\xBF\xBD");
    const auto nameIn = [this](const std::string& encoding, const std::string& name) {
        return readFile("<?xml version='1.0' encoding = '" + encoding + "' ?><xbel><title>" + name +
                        "</title></xbel>")
            ->itemName()
            .string();
    };
    EXPECT_EQ(nameIn("windows-1252", "caf\xE9 \x80"), "café €");
    EXPECT_EQ(nameIn("koi8-r", "\xD0\xD2\xC9"), "при");
    EXPECT_EQ(nameIn("Shift_JIS", "\x93\xFA\x96\x7B"), "日本");
    EXPECT_EQ(nameIn("UTF-8", "é"), "é");
}

TEST_F(XBELReader, anUnknownEncodingIsRefusedAndNamed) {
    const auto tree = readXBEL("<?xml version=\"1.0\" encoding=\"x-nobody\"?><xbel/>", {fakes.services()});
    ASSERT_FALSE(tree);
    EXPECT_NE(tree.error().message.find("x-nobody"), std::string::npos);
}

TEST_F(XBELReader, aReferenceToZeroIsRefusedRatherThanLosingWhatFollows) {
    for (const char* content : {"<title>abc&#0;def</title>", "<bookmark href=\"a&#x00;b\"/>"})
        EXPECT_FALSE(readXBEL(kStart + std::string(content) + "</xbel>", {fakes.services()})) << content;
    EXPECT_EQ(read("<title>a&#10;b &amp;#0;</title>")->itemName().view(), "a\nb &#0;");
}

TEST_F(XBELReader, deepFilesAreReadWithoutRecursion) {
    std::string content;
    for (int i = 0; i < 200000; ++i)
        content += "<folder>";
    for (int i = 0; i < 200000; ++i)
        content += "</folder>";
    EXPECT_EQ(count(*read(content)), 1u);
}

// A tree that is written and read again keeps its structure, names, addresses and tags. The note of a link
// stays escaped once.
TEST_F(XBELReader, roundTrip) {
    const Ref<Bookmark> root =
        read("<folder><title>F &amp; G</title><bookmark href=\"https://x/\"><title>n</title>"
             "<desc>a &amp; b</desc><info><metadata owner=\"/tags\">t</metadata></info></bookmark>"
             "<separator/></folder>");
    const Ref<Bookmark> again = readFile(exportToXBEL(*root, {}).value());
    const Bookmark& link = *again->getChild()->getChild();
    EXPECT_EQ(again->getChild()->itemName().view(), "F & G");
    EXPECT_EQ(link.itemURL().view(), "https://x/");
    EXPECT_EQ(link.itemNote().view(), "a &amp; b") << "a link's note is escaped twice and unescaped once";
    EXPECT_EQ(link.itemTags().view(), "t");
    EXPECT_TRUE(again->getChild()->getLast()->isSeparator());
}

TEST_F(XBELReader, aLongFileCanBeCancelledBeforeTheParseAndAtAnyTimeAfter) {
    std::string file = kStart;
    for (int i = 0; i < 20'000; ++i)
        file += "<bookmark href=\"https://example.org/\"><title>A link</title></bookmark>\n";
    file += "</xbel>";
    test::CountingProgress whole;
    ASSERT_TRUE(readXBEL(file, {fakes.services(), &whole}));
    EXPECT_TRUE(std::ranges::is_sorted(whole.fractions));
    EXPECT_EQ(whole.fractions.front(), 0) << "before the parse";
    EXPECT_GT(whole.fractions.back(), 0.9);
    for (std::size_t call = 1; call <= whole.fractions.size(); call += 7) {
        test::CountingProgress progress(call);
        const auto tree = readXBEL(file, {fakes.services(), &progress});
        ASSERT_FALSE(tree) << call;
        EXPECT_TRUE(isCancelledByUser(tree.error())) << call;
    }
}

TEST_F(XBELReader, whatOurOwnExportWritesIsRead) {
    Ref<Bookmark> master = Bookmark::initEmpty();
    master->makeParent();
    Ref<Bookmark> link = Bookmark::initEmpty();
    link->setItemName(std::string_view("a\0b\x01", 4));
    link->setItemURL("mailto:a@b.example");
    link->setItemNote(std::string_view("\0", 1));
    master->addChild(std::move(link));
    const auto tree = tabulon::readXBEL(*exportToXBEL(*master, {}), {fakes.services()});
    ASSERT_TRUE(tree) << tree.error().message;
    EXPECT_EQ((*tree)->getChild()->itemName(), Text("a\uFFFDb\x01"));
}

TEST_F(XBELReader, linksAreClassifiedByTheirScheme) {
    const auto type = [this](const std::string& address) {
        return read("<bookmark href=\"" + address + "\"/>")->getChild()->getType();
    };
    EXPECT_EQ(type("mailto:a@b"), kMailType);
    EXPECT_EQ(type("ftp://x/"), kFTPType);
    EXPECT_EQ(type("https://x/"), kWebType);
}

} // namespace
} // namespace tabulon
