// Tests the exact output of the HTML export, and the functions that it shares with the other text exports.
#include "formats/export/NetscapeHTML.h"

#include "formats/export/ExportText.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/formats/TreeFixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tabulon {
namespace {

const std::string kHeader = "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
                            "<!-- Created by Tabulon - https://tabulon.example/ -->\n"
                            "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
                            "<TITLE>Bookmarks</TITLE>\n"
                            "<H1>Bookmarks</H1>\n";

class NetscapeHTML : public TreeTest {
protected:
    // Returns the text after the header.
    std::string body(const HTMLExportOptions& options = {}) {
        const std::string html = exportToHTML(*master, options).value();
        EXPECT_EQ(html.substr(0, kHeader.size()), kHeader);
        return html.substr(std::min(kHeader.size(), html.size()));
    }
    std::string addedAs(Date date) {
        addLink(*master, "n", "u").setItemDateAdded(date);
        const std::string line = body();
        master->removeLast();
        const std::size_t value = line.find("ADD_DATE=\"") + 10;
        return line.substr(value, line.find('"', value) - value);
    }
};

TEST_F(NetscapeHTML, anEmptyMasterGivesTheFiveHeaderLinesOnly) {
    EXPECT_EQ(exportToHTML(*master, {}).value(), kHeader);
    EXPECT_EQ(exportToHTML(*Bookmark::initEmpty(), {}).value(), kHeader) << "also without a child list";
}

TEST_F(NetscapeHTML, aWholeTreeIsIndentedByItsLevels) {
    Bookmark& outer = addFolder(*master, "Outer");
    addLink(outer, "A", "http://a.example/", "note");
    addSeparator(outer);
    Bookmark& inner = addFolder(outer, "Inner");
    addLink(inner, "B", "http://b.example/");
    addLink(*master, "C", "http://c.example/");
    EXPECT_EQ(body(), "<DL><p>\n"
                      "\t<DT><H3 ADD_DATE=\"0\">Outer</H3>\n"
                      "\t<DL><p>\n"
                      "\t\t<DT><A HREF=\"http://a.example/\" ADD_DATE=\"0\">A</A>\n"
                      "\t\t<DD>note\n"
                      "\t\t<HR>\n"
                      "\t\t<DT><H3 ADD_DATE=\"0\">Inner</H3>\n"
                      "\t\t<DL><p>\n"
                      "\t\t\t<DT><A HREF=\"http://b.example/\" ADD_DATE=\"0\">B</A>\n"
                      "\t\t</DL><p>\n"
                      "\t</DL><p>\n"
                      "\t<DT><A HREF=\"http://c.example/\" ADD_DATE=\"0\">C</A>\n"
                      "</DL><p>\n");
}

TEST_F(NetscapeHTML, anEmptyFolderHasItsListOneLevelDeeperAndClosedOtherwise) {
    addFolder(*master, "Empty");
    EXPECT_EQ(body(), "<DL><p>\n"
                      "\t<DT><H3 ADD_DATE=\"0\">Empty</H3>\n"
                      "\t\t<DL><p></DL></p>\n"
                      "</DL><p>\n");
}

TEST_F(NetscapeHTML, aFolderWithoutAListIsAnEmptyFolder) {
    Ref<Bookmark> folder = Bookmark::initEmpty();
    folder->setItemFolder(true);
    folder->setItemName("f");
    add(*master, folder);
    EXPECT_EQ(body(), "<DL><p>\n\t<DT><H3 ADD_DATE=\"0\">f</H3>\n\t\t<DL><p></DL></p>\n</DL><p>\n");
}

TEST_F(NetscapeHTML, aFolderWithoutANameHasNoHeadingButItsContents) {
    addLink(addFolder(*master, nullptr), "n", "u");
    addFolder(*master, "");
    EXPECT_EQ(body(), "<DL><p>\n"
                      "\t<DL><p>\n"
                      "\t\t<DT><A HREF=\"u\" ADD_DATE=\"0\">n</A>\n"
                      "\t</DL><p>\n"
                      "\t\t<DL><p></DL></p>\n"
                      "</DL><p>\n");
}

TEST_F(NetscapeHTML, aLinkNeedsNameAndURLToBePresentButNotFilled) {
    addLink(*master, nullptr, "u");
    addLink(*master, "n", nullptr);
    addLink(*master, "", "");
    EXPECT_EQ(body(), "<DL><p>\n\t<DT><A HREF=\"\" ADD_DATE=\"0\"></A>\n</DL><p>\n");
}

TEST_F(NetscapeHTML, aLinkWithoutNameOrURLStillGivesItsNote) {
    addLink(*master, nullptr, "u", "one");
    addLink(*master, "n", nullptr, "two");
    EXPECT_EQ(body(), "<DL><p>\n\t<DD>one\n\t<DD>two\n</DL><p>\n");
}

TEST_F(NetscapeHTML, anEmptyNoteGivesNoLine) {
    addLink(*master, "n", "u", "");
    EXPECT_EQ(body(), "<DL><p>\n\t<DT><A HREF=\"u\" ADD_DATE=\"0\">n</A>\n</DL><p>\n");
}

TEST_F(NetscapeHTML, onlyLinksHaveTheirNoteWritten) {
    addLink(addFolder(*master, "f"), "n", "u").setItemTags("tag");
    master->getChild()->setItemNote("of the folder");
    addSeparator(*master).setItemNote("of the separator");
    EXPECT_EQ(body().find("of the"), std::string::npos);
    EXPECT_EQ(body().find("tag"), std::string::npos);
}

TEST_F(NetscapeHTML, tagsCodesAndTheOtherDatesAreNotWritten) {
    Bookmark& link = addLink(*master, "n", "u");
    Bookmark& folder = addFolder(*master, "f");
    const std::string plain = body();
    for (Bookmark* node : {&link, &folder}) {
        node->setItemTags("tag");
        node->setLabel(3);
        node->setFlags(15);
        node->setStatus(5);
        node->setItemBrowser(10);
        node->setAutoTab(true);
        node->setShowHier(true);
        node->setItemLastChecked(Date::fromUnixSeconds(30));
        node->setItemLastOpened(Date::fromUnixSeconds(40));
    }
    link.setType(kMailType);
    EXPECT_EQ(body(), plain);
}

TEST_F(NetscapeHTML, theNameIsEscapedAndTheURLIsNot) {
    addLink(*master, "Q&A <\"'>", "http://a.example/?a=1&b=<'>");
    addFolder(*master, "R&D");
    EXPECT_EQ(
        body(),
        "<DL><p>\n"
        "\t<DT><A HREF=\"http://a.example/?a=1&b=<'>\" ADD_DATE=\"0\">Q&amp;A &lt;&quot;&apos;&gt;</A>\n"
        "\t<DT><H3 ADD_DATE=\"0\">R&amp;D</H3>\n"
        "\t\t<DL><p></DL></p>\n"
        "</DL><p>\n");
}

TEST_F(NetscapeHTML, aNoteIsFlattenedFirstAndEscapedThen) {
    addLink(*master, nullptr, nullptr, "two\nlines\r\n\tand \"quotes\" & more");
    EXPECT_EQ(body(), "<DL><p>\n\t<DD>two lines   and &apos;quotes&apos; &amp; more\n</DL><p>\n");
}

TEST_F(NetscapeHTML, aSeparatorThatIsAFolderHasItsChildrenWritten) {
    Bookmark& separator = addFolder(*master, "name");
    separator.setType(kSeparatorType);
    EXPECT_EQ(body(), "<DL><p>\n\t<HR>\n</DL><p>\n");
    addSeparator(separator);
    EXPECT_EQ(body(), "<DL><p>\n\t<HR>\n\t<DL><p>\n\t\t<HR>\n\t</DL><p>\n</DL><p>\n");
}

TEST_F(NetscapeHTML, childrenOfALinkOrASeparatorAreNotWritten) {
    addSeparator(addLink(*master, "n", "u"));
    addLink(addSeparator(*master), "n", "u");
    EXPECT_EQ(body(), "<DL><p>\n\t<DT><A HREF=\"u\" ADD_DATE=\"0\">n</A>\n\t<HR>\n</DL><p>\n");
}

TEST_F(NetscapeHTML, bothDatesAreWrittenOnLinksAndFolders) {
    for (Bookmark* node : {&addLink(*master, "n", "u"), &addFolder(*master, "f")}) {
        node->setItemDateAdded(Date::fromUnixSeconds(10));
        node->setItemDateModified(Date::fromUnixSeconds(20));
        node->setItemLastChecked(Date::fromUnixSeconds(30));
        node->setItemLastOpened(Date::fromUnixSeconds(40));
    }
    EXPECT_EQ(body(), "<DL><p>\n"
                      "\t<DT><A HREF=\"u\" ADD_DATE=\"10\" LAST_MODIFIED=\"20\">n</A>\n"
                      "\t<DT><H3 ADD_DATE=\"10\" LAST_MODIFIED=\"20\">f</H3>\n"
                      "\t\t<DL><p></DL></p>\n"
                      "</DL><p>\n");
}

TEST_F(NetscapeHTML, aMissingAddedDateIsZeroAndAMissingModifiedDateIsLeftOut) {
    addLink(*master, "n", "u").setItemDateModified(Date::fromUnixSeconds(0));
    EXPECT_EQ(body(), "<DL><p>\n\t<DT><A HREF=\"u\" ADD_DATE=\"0\" LAST_MODIFIED=\"0\">n</A>\n</DL><p>\n");
}

TEST_F(NetscapeHTML, datesAreTruncatedTowardZero) {
    EXPECT_EQ(addedAs(Date::fromUnixSeconds(1.9)), "1");
    EXPECT_EQ(addedAs(Date::fromUnixSeconds(-1.9)), "-1");
    EXPECT_EQ(addedAs(Date::fromUnixSeconds(-0.5)), "0");
    EXPECT_EQ(addedAs(Date::fromReferenceSeconds(0)), "978307200");
    EXPECT_EQ(addedAs(Date::fromReferenceSeconds(785000000.25)), "1763307200");
}

TEST_F(NetscapeHTML, datesThatNoIntegerHoldsAreWrittenWithAllDigits) {
    EXPECT_EQ(addedAs(Date::fromUnixSeconds(18446744062065078016.0)), "18446744062065078272");
    EXPECT_EQ(addedAs(Date::fromUnixSeconds(9223372036854775808.0)), "9223372036854775808");
    EXPECT_EQ(addedAs(Date::fromUnixSeconds(-9223372036854775808.0)), "-9223372036854775808");
    EXPECT_EQ(addedAs(Date::fromUnixSeconds(1e22)), "10000000000000000000000");
    EXPECT_EQ(addedAs(Date::fromUnixSeconds(-1e22)), "-10000000000000000000000");
    EXPECT_EQ(addedAs(Date::fromReferenceSeconds(std::numeric_limits<double>::max())).size(), 309u);
    EXPECT_EQ(addedAs(Date::fromReferenceSeconds(std::numeric_limits<double>::lowest())).size(), 310u);
}

TEST_F(NetscapeHTML, datesThatAreNoNumberAreZero) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(addedAs(Date::fromReferenceSeconds(infinity)), "0");
    EXPECT_EQ(addedAs(Date::fromReferenceSeconds(-infinity)), "0");
    EXPECT_EQ(addedAs(Date::fromReferenceSeconds(std::numeric_limits<double>::quiet_NaN())), "0");
}

TEST_F(NetscapeHTML, withoutSortingTheOrderOfTheTreeStays) {
    addLink(*master, "b", "1");
    addLink(*master, "a", "2");
    EXPECT_LT(body().find(">b<"), body().find(">a<"));
}

TEST_F(NetscapeHTML, sortingIgnoresCaseAndAppliesToEveryLevelSeparately) {
    const Collation english("en");
    addLink(*master, "Banana", "1");
    addLink(*master, "apple", "2");
    Bookmark& folder = addFolder(*master, "Äpfel");
    addLink(folder, "z", "3");
    addLink(folder, "Y", "4");
    EXPECT_EQ(body({.sortByName = &english}), "<DL><p>\n"
                                              "\t<DT><H3 ADD_DATE=\"0\">Äpfel</H3>\n"
                                              "\t<DL><p>\n"
                                              "\t\t<DT><A HREF=\"4\" ADD_DATE=\"0\">Y</A>\n"
                                              "\t\t<DT><A HREF=\"3\" ADD_DATE=\"0\">z</A>\n"
                                              "\t</DL><p>\n"
                                              "\t<DT><A HREF=\"2\" ADD_DATE=\"0\">apple</A>\n"
                                              "\t<DT><A HREF=\"1\" ADD_DATE=\"0\">Banana</A>\n"
                                              "</DL><p>\n");
    EXPECT_EQ(folder.getChild()->itemName().view(), "z") << "the tree itself stays as it is";
}

TEST_F(NetscapeHTML, sortingKeepsTheOrderOfEqualNamesAndPutsMissingOnesFirst) {
    const Collation english("en");
    addLink(*master, "same", "1");
    addLink(*master, "SAME", "2");
    addLink(*master, "Same", "3");
    addLink(*master, nullptr, nullptr, "no name");
    EXPECT_EQ(body({.sortByName = &english}), "<DL><p>\n"
                                              "\t<DD>no name\n"
                                              "\t<DT><A HREF=\"1\" ADD_DATE=\"0\">same</A>\n"
                                              "\t<DT><A HREF=\"2\" ADD_DATE=\"0\">SAME</A>\n"
                                              "\t<DT><A HREF=\"3\" ADD_DATE=\"0\">Same</A>\n"
                                              "</DL><p>\n");
}

TEST_F(NetscapeHTML, sortingALongListKeepsTheOrderOfEqualNames) {
    const Collation english("en");
    std::string expected = "<DL><p>\n";
    for (const char* name : {"a", "b"})
        for (int i = 0; i < 500; ++i)
            expected += "\t<DT><A HREF=\"" + std::to_string(i) + "\" ADD_DATE=\"0\">" + name + "</A>\n";
    for (int i = 0; i < 500; ++i) {
        addLink(*master, "b", std::to_string(i));
        addLink(*master, "a", std::to_string(i));
    }
    EXPECT_EQ(body({.sortByName = &english}), expected + "</DL><p>\n");
}

TEST_F(NetscapeHTML, sortingFollowsTheLanguage) {
    const Collation german("de");
    const Collation swedish("sv");
    addLink(*master, "Zorn", "1");
    addLink(*master, "Öl", "2");
    const auto first = [&](const Collation& collation) {
        return body({.sortByName = &collation}).find(">Öl<") <
               body({.sortByName = &collation}).find(">Zorn<");
    };
    EXPECT_TRUE(first(german));
    EXPECT_FALSE(first(swedish));
}

TEST_F(NetscapeHTML, aTreeFiveThousandDeepIsExported) {
    constexpr std::size_t kDepth = 5000;
    Bookmark* folder = master.get();
    for (std::size_t i = 0; i < kDepth; ++i)
        folder = &addFolder(*folder, nullptr);
    addSeparator(*folder);
    const Collation english("en");
    const std::string html = body();
    EXPECT_EQ(html, body({.sortByName = &english}));
    // One list for each folder and one for the master. Their first and last lines are indented by 0, 1, 2, …
    // tabs.
    const std::size_t tabs = kDepth * (kDepth + 1) + kDepth + 1;
    const std::size_t lines = (kDepth + 1) * std::string_view("<DL><p>\n</DL><p>\n").size() + 5;
    EXPECT_EQ(html.size(), tabs + lines);
    const std::size_t separator = html.find("<HR>\n");
    EXPECT_EQ(separator - html.rfind('\n', separator) - 1, kDepth + 1);
}

TEST_F(NetscapeHTML, aFileLargerThanItMayBeIsRefused) {
    addLink(addFolder(*master, "f"), "n", "u");
    const std::size_t size = kHeader.size() + body().size();
    EXPECT_TRUE(exportToHTML(*master, {.mostBytes = size}));
    const auto refused = exportToHTML(*master, {.mostBytes = size - 1});
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().message, "The bookmarks are too many or too long for one HTML file.");
}

TEST_F(NetscapeHTML, aLongTextThatManyLinksShareFillsNoMoreThanTheFileMayHave) {
    const Text shared(std::string(1 << 20, 'x'));
    for (int i = 0; i < 100000; ++i)
        addLink(*master, "n", shared);
    EXPECT_FALSE(exportToHTML(*master, {.mostBytes = 1 << 24}));
}

TEST_F(NetscapeHTML, aTreeTwoHundredThousandDeepIsRefusedAtOnce) {
    Bookmark* folder = master.get();
    for (int i = 0; i < 200000; ++i)
        folder = &addFolder(*folder, "f");
    const auto refused = exportToHTML(*master, {});
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.error().message.find("nested too deep"), std::string::npos);
}

TEST_F(NetscapeHTML, aLargeFlatListIsExportedInOrder) {
    std::string expected = "<DL><p>\n";
    for (int i = 0; i < 3000; ++i) {
        addLink(*master, std::to_string(i), "u");
        expected += "\t<DT><A HREF=\"u\" ADD_DATE=\"0\">" + std::to_string(i) + "</A>\n";
    }
    EXPECT_EQ(body(), expected + "</DL><p>\n");
}

TEST(ExportText, doIndentAppendsATabPerLevel) {
    std::string text = "x";
    doIndent(text, 3);
    EXPECT_EQ(text, "x\t\t\t");
    doIndent(text, 0);
    doIndent(text, -1);
    doIndent(text, std::numeric_limits<int>::min());
    EXPECT_EQ(text, "x\t\t\t");
}

TEST(ExportText, tidyPartMakesOneLineWithoutDoubleQuotes) {
    EXPECT_EQ(tidyPart("a\tb\nc\rd\r\n\"e\""), "a b c d  'e'");
    EXPECT_EQ(tidyPart("\n\n\t x"), "    x") << "blanks are not joined";
    EXPECT_EQ(tidyPart("é & <b>"), "é & <b>");
    EXPECT_EQ(tidyPart(""), "");
}

} // namespace
} // namespace tabulon
