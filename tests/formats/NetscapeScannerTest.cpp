// Tests how the tag scanner reads tokens, folders, separators, descriptions and dates. Links and their names
// are in NetscapeScannerLinkTest.
#include "tests/formats/ScanFixture.h"

namespace tabulon {
namespace {

using NetscapeScannerTest = test::ScanFixture;

TEST_F(NetscapeScannerTest, rootIsAFolderNamedMasterMadeNow) {
    const Ref<Bookmark> root = scan("");
    EXPECT_EQ(root->itemName().view(), "Master");
    EXPECT_TRUE(root->isFolder());
    EXPECT_FALSE(root->hasChildren());
    EXPECT_EQ(root->itemDateAdded(), fakes.now());
    EXPECT_EQ(root->getParent(), nullptr);
}

TEST_F(NetscapeScannerTest, aWholeFileKeepsFoldersLinksSeparatorsNotesAndDates) {
    EXPECT_EQ(scanText("<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<TITLE>Bookmarks</TITLE>\n<H1>Bookmarks</H1>\n"
                       "<DL><p>\n"
                       "\t<DT><H3 ADD_DATE=\"10\" LAST_MODIFIED=\"20\">Outer</H3>\n"
                       "\t<DL><p>\n"
                       "\t\t<DT><A HREF=\"http://a.example/\" ADD_DATE=\"30\" LAST_MODIFIED=\"40\">A</A>\n"
                       "\t\t<DD>About A\n"
                       "\t\t<HR>\n"
                       "\t\t<DT><H3 ADD_DATE=\"50\">Inner</H3>\n"
                       "\t\t<DL><p>\n"
                       "\t\t\t<DT><A HREF=\"ftp://b.example/\" ADD_DATE=\"60\">B</A>\n"
                       "\t\t</DL><p>\n"
                       "\t</DL><p>\n"
                       "\t<DT><A HREF=\"mailto:c@c.example\">C</A>\n"
                       "</DL><p>\n"),
              "folder \"Outer\" added 10 modified 20\n"
              "  link \"A\" <http://a.example/> added 30 modified 40 note \"About A\\x0A\\x09\\x09\"\n"
              "  separator null added now\n"
              "  folder \"Inner\" added 50\n"
              "    link \"B\" <ftp://b.example/> type 1 added 60\n"
              "link \"C\" <mailto:c@c.example> type 3 added null\n");
}

TEST_F(NetscapeScannerTest, whatIsFoundHasItsParentAndItsIcon) {
    const Ref<Bookmark> root = scan("<DT><H3>F</H3><DL><DT><A HREF=\"ftp://a.example\">A</A><HR></DL>");
    const Bookmark* folder = root->getChild();
    EXPECT_EQ(folder->getParent(), root.get());
    EXPECT_EQ(folder->itemIcon(), ItemIcon::Folder);
    EXPECT_EQ(folder->getChild()->getParent(), folder);
    EXPECT_EQ(folder->getChild()->itemIcon(), ItemIcon::FtpType);
    EXPECT_EQ(folder->getLast()->itemIcon(), ItemIcon::HttpType);
}

TEST_F(NetscapeScannerTest, tagsInLowerCaseAreNotSeen) {
    EXPECT_EQ(scanText("<dl><dt><a href=\"http://a.example/\">a</a><hr></dl>"), "");
    EXPECT_EQ(scanText("<DT><A href=\"http://a.example/\">a</A></DL>"), "");
    EXPECT_EQ(scanText("<DT><h3>x</h3></DL>"), "");
}

TEST_F(NetscapeScannerTest, theKindOfATagDependsOnItsBytesAtFixedPlaces) {
    EXPECT_EQ(scanText("<D...H>name</H3>."), "folder \"name\" added null\n");
    EXPECT_EQ(scanText("<D..<A HREF=\"http://a.example/\">name</A>"),
              "link \"name\" <http://a.example/> added null\n");
    EXPECT_EQ(scanText("<D1234A<A HREF=\"http://a.example/\">n</A>"), "") << "the sixth byte is no A";
    EXPECT_EQ(scanText("<D123A <A HREF=\"http://a.example/\">n</A>"),
              "link \"n\" <http://a.example/> added null\n");
}

TEST_F(NetscapeScannerTest, afterAnUnknownTagTheScanGoesOnFiveBytesFurther) {
    EXPECT_EQ(scanText("<DT> <DT><A HREF=\"u\">n</A>"), "link \"n\" <u> added null\n");
    EXPECT_EQ(scanText("<DT><DT><A HREF=\"u\">n</A>"), "") << "the second tag begins inside the five bytes";
}

TEST_F(NetscapeScannerTest, aLoneSeparatorAfterTheLastTagIsIgnored) {
    EXPECT_EQ(scanText("<HR>"), "");
    EXPECT_EQ(scanText("<HR></DL>"), "separator null added now\n");
    EXPECT_EQ(scanText("<HR><HR><D"), "separator null added now\nseparator null added now\n");
    EXPECT_EQ(scanText("<HR></DL><HR><HR>"), "separator null added now\n");
    EXPECT_EQ(scanText("<HR ><HR SIZE=1></DL>"), "");
}

TEST_F(NetscapeScannerTest, separatorsAreMadeNowAndHaveNoName) {
    const Ref<Bookmark> separator = scanFirst("<HR></DL>");
    EXPECT_TRUE(separator->isSeparator());
    EXPECT_EQ(separator->itemDateAdded(), fakes.now());
    EXPECT_TRUE(separator->itemDateModified().isNull());
    EXPECT_TRUE(separator->itemName().isNull());
    EXPECT_TRUE(separator->itemURL().isNull());
}

TEST_F(NetscapeScannerTest, aListDescendsIntoTheLastChildWhateverItIs) {
    EXPECT_EQ(scanText("<DT><A HREF=\"u\">n</A><DL><p><HR><DL><HR></DL></DL><HR></DL>"),
              "link \"n\" <u> added null\n"
              "  separator null added now\n"
              "    separator null added now\n"
              "separator null added now\n");
    const Ref<Bookmark> link = scanFirst("<DT><A HREF=\"u\">n</A><DL><p><HR></DL>");
    EXPECT_TRUE(link->hasChildren());
    EXPECT_FALSE(link->isFolder()) << "a link does not become a folder by its children";
}

TEST_F(NetscapeScannerTest, aListInAnEmptyFolderChangesNothing) {
    EXPECT_EQ(scanText("<DL><DL><DL><HR></DL><HR></DL>"),
              "separator null added now\nseparator null added now\n");
}

TEST_F(NetscapeScannerTest, aListEndAtTheRootChangesNothing) {
    EXPECT_EQ(scanText("</DL></DL></DL><HR></DL><HR></DL>"),
              "separator null added now\nseparator null added now\n");
}

TEST_F(NetscapeScannerTest, onlyAWholeListEndEndsAList) {
    EXPECT_EQ(scanText("<HR><DL></DL </DL\n></D><HR></DL><HR></DL>"), "separator null added now\n"
                                                                      "  separator null added now\n"
                                                                      "separator null added now\n");
}

TEST_F(NetscapeScannerTest, theThirdByteOfATagCountsBeforeTheSixth) {
    EXPECT_EQ(scanText("<HR><DLxxA HREF=\"u\"><HR></DL>"),
              "separator null added now\n  separator null added now\n");
    EXPECT_EQ(scanFirst("<HR><DDxyHz<H1>")->itemNote().view(), "yHz");
}

TEST_F(NetscapeScannerTest, afterAListTagTheScanGoesOnFourBytesFurther) {
    EXPECT_EQ(scanText("<HR><DLx<HR></DL>"), "separator null added now\n  separator null added now\n");
    EXPECT_EQ(scanText("<HR><DL<HR></DL>"), "separator null added now\n") << "the fourth byte is passed over";
}

TEST_F(NetscapeScannerTest, aFolderNameIsWhatStandsBeforeItsClosingTag) {
    EXPECT_EQ(nameOfFirst("<DT><H3>name</H3>"), "name");
    EXPECT_EQ(nameOfFirst("<DT><H3 FOLDED ID=\"x\"> two words\n</H3>"), " two words\n");
    EXPECT_EQ(nameOfFirst("<DT><H3><B>bold</H3>"), "bold");
    EXPECT_EQ(nameOfFirst("<DT><H3>a > b</H3>"), " b");
    EXPECT_EQ(nameOfFirst("<DT><H3>name</H1>"), "name");
    EXPECT_EQ(nameOfFirst("<DT><H3</H3>"), "<H3") << "the nearest > may be the one before the H3";
}

TEST_F(NetscapeScannerTest, aFolderWithoutANameIsUntitled) {
    EXPECT_EQ(nameOfFirst("<DT><H3></H3>"), "Untitled");
    EXPECT_EQ(nameOfFirst("<DT><H3>x</B></H3>"), "Untitled");
}

TEST_F(NetscapeScannerTest, aFolderNameReachesBackFiveHundredAndTwelveBytesAtMost) {
    EXPECT_EQ(nameOfFirst("<DT><H3>" + std::string(511, 'n') + "</H3>"), std::string(511, 'n'));
    EXPECT_EQ(scanText("<HR><DT><H3>" + std::string(512, 'n') + "</H3><HR></DL>"),
              "separator null added now\n")
        << "what came before is kept, what follows is not read";
}

TEST_F(NetscapeScannerTest, aFolderWithoutAClosingTagEndsTheScan) {
    EXPECT_EQ(scanText("<HR><DT><H3>name<HR></DL>"), "separator null added now\n");
}

TEST_F(NetscapeScannerTest, toolbarFoldersAreFavourites) {
    for (const std::string name : {"Toolbar Favorites", "Personal Toolbar Folder", "Bookmarks Toolbar"}) {
        const Ref<Bookmark> folder = scanFirst("<DT><H3 PERSONAL_TOOLBAR_FOLDER=\"true\">" + name + "</H3>");
        EXPECT_EQ(folder->itemName().view(), "Favourites");
        EXPECT_EQ(folder->getLabel(), 0);
    }
    EXPECT_EQ(nameOfFirst("<DT><H3>Bookmarks &#84;oolbar</H3>"), "Favourites");
    EXPECT_EQ(nameOfFirst("<DT><H3>bookmarks toolbar</H3>"), "bookmarks toolbar");
    EXPECT_EQ(nameOfFirst("<DT><H3>Bookmarks Toolbar </H3>"), "Bookmarks Toolbar ");
    EXPECT_EQ(nameOfFirst("<DT><A HREF=\"u\">Bookmarks Toolbar</A>"), "Bookmarks Toolbar") << "links keep it";
}

TEST_F(NetscapeScannerTest, textsOfTheProgramAreInTheUsersLanguage) {
    struct Esperanto : Localization {
        std::string text(std::string_view key) const override { return "la " + std::string(key); }
        std::string locale() const override { return "eo"; }
    } texts;
    const Ref<Bookmark> root =
        scanner.scan("<DT><H3>Bookmarks Toolbar</H3><DT><H3></H3><DT><A HREF=\"u\"></A>",
                     {fakes.clock, fakes.defaults, texts, fakes.log});
    EXPECT_EQ(textOf(*root), "folder \"la Favourites\" added null\n"
                             "folder \"la Untitled\" added null\n"
                             "link \"la Untitled\" <u> added null\n");
}

TEST_F(NetscapeScannerTest, aTabGroupOpensAllItsLinks) {
    EXPECT_TRUE(scanFirst("<DT><H3 FOLDER_GROUP=\"true\">g</H3>")->getAutoTab());
    EXPECT_FALSE(scanFirst("<DT><H3 FOLDER_GROUP=\"false\">g</H3>")->getAutoTab());
    EXPECT_FALSE(scanFirst("<DT><H3>g</H3> FOLDER_GROUP=\"true\"")->getAutoTab());
    EXPECT_FALSE(scanFirst("<DT><H3>g</H3FOLDER_GROUP=\"true\"")->getAutoTab());
    EXPECT_FALSE(scanFirst("FOLDER_GROUP=\"true\"<DT><H3>g</H3>")->getAutoTab());
}

TEST_F(NetscapeScannerTest, aDescriptionIsTheNoteOfTheItemBefore) {
    EXPECT_EQ(scanFirst("<DT><A HREF=\"u\">n</A>\n<DD>text\n<HR>")->itemNote().view(), "text");
    EXPECT_EQ(scanFirst("<DT><H3>f</H3><DD>about &lt;f&gt;<")->itemNote().view(), "about <f>");
    EXPECT_EQ(scanFirst("<HR><DD>of a line<")->itemNote().view(), "of a line");
    EXPECT_EQ(scanFirst("<HR><DD>first<DD>second<")->itemNote().view(), "second");
}

TEST_F(NetscapeScannerTest, aDescriptionGoesToTheLastItemEvenAfterItsListEnded) {
    EXPECT_EQ(scanText("<DT><H3>f</H3><DL><DT><A HREF=\"u\">n</A></DL><DD>late<"),
              "folder \"f\" added null\n  link \"n\" <u> added null note \"late\"\n");
}

TEST_F(NetscapeScannerTest, aDescriptionLosesOneLineEndOnly) {
    EXPECT_EQ(scanFirst("<HR><DD>x\r\n<")->itemNote().view(), "x\r");
    EXPECT_EQ(scanFirst("<HR><DD>x\n\n<")->itemNote().view(), "x\n");
    EXPECT_EQ(scanFirst("<HR><DD>x\r<")->itemNote().view(), "x");
    EXPECT_EQ(scanFirst("<HR><DD>\tx \n<")->itemNote().view(), "\tx ");
}

TEST_F(NetscapeScannerTest, aDescriptionKeepsTheIndentOfTheNextLine) {
    EXPECT_EQ(scanFirst("<HR>\n\t<DD>x\n\t<HR></DL>")->itemNote().view(), "x\n\t")
        << "the byte before the next tag is no line end, so none is left out";
}

TEST_F(NetscapeScannerTest, anEmptyDescriptionSetsNoNote) {
    EXPECT_TRUE(scanFirst("<HR><DD>\n<DD><")->itemNote().isNull());
    EXPECT_TRUE(scanFirst("<HR><DD\n<")->itemNote().isNull()) << "the line end belongs to the tag";
    EXPECT_EQ(scanFirst("<HR><DD>kept<DD><")->itemNote().view(), "kept");
}

TEST_F(NetscapeScannerTest, aDescriptionWithoutATagBehindItEndsTheScan) {
    EXPECT_TRUE(scanFirst("<HR><DD>text")->itemNote().isNull());
    EXPECT_TRUE(scanFirst("<HR><DD")->itemNote().isNull());
}

TEST_F(NetscapeScannerTest, aDescriptionBeforeAnyItemIsDroppedInTheFirstScan) {
    EXPECT_EQ(scanText("<DD>lost<HR></DL>"), "separator null added now\n");
}

TEST_F(NetscapeScannerTest, aDescriptionBeforeAnyItemGoesToTheLastItemOfTheScanBefore) {
    const Ref<Bookmark> first = scan("<DT><A HREF=\"u\">n</A>");
    const Ref<Bookmark> second = scan("<DD>late<HR></DL>");
    EXPECT_EQ(textOf(*first), "link \"n\" <u> added null note \"late\"\n");
    EXPECT_EQ(textOf(*second), "separator null added now\n");
}

TEST_F(NetscapeScannerTest, theLastItemOutlivesItsTreeAndAScanThatFindsNothing) {
    scan("<DT><H3>f</H3><DL><DT><A HREF=\"u\">n</A></DL>");
    EXPECT_EQ(scanText(""), "");
    EXPECT_EQ(scanText("<DD>late<DD>later<HR></DL>"), "separator null added now\n");
}

TEST_F(NetscapeScannerTest, datesAreReadFromLinksAndFolders) {
    EXPECT_EQ(scanText("<DT><A HREF=\"u\" LAST_MODIFIED=\"2\" ADD_DATE=\"1\">n</A>"),
              "link \"n\" <u> added 1 modified 2\n");
    EXPECT_EQ(scanText("<DT><H3 ADD_DATE=\"3\">f</H3>"), "folder \"f\" added 3\n");
    EXPECT_EQ(scanFirst("<DT><A HREF=\"u\" ADD_DATE=\"0\">n</A>")->itemDateAdded(), Date::fromUnixSeconds(0));
}

TEST_F(NetscapeScannerTest, aMissingDateIsNull) {
    const Ref<Bookmark> link = scanFirst("<DT><A HREF=\"u\">n</A>");
    EXPECT_TRUE(link->itemDateAdded().isNull());
    EXPECT_TRUE(link->itemDateModified().isNull());
    EXPECT_TRUE(scanFirst("<DT><H3>f</H3>")->itemDateAdded().isNull());
    EXPECT_TRUE(scanFirst("<DT><A HREF=\"u\" add_date=\"1\">n</A>")->itemDateAdded().isNull());
}

TEST_F(NetscapeScannerTest, aDateWithoutDigitsIsTheBeginningOfTime) {
    for (const std::string value : {"", "x", " 5", "-5", "+5", "\n"})
        EXPECT_EQ(scanFirst("<DT><A HREF=\"u\" ADD_DATE=\"" + value + "\">n</A>")->itemDateAdded(),
                  Date::fromUnixSeconds(0))
            << value;
}

TEST_F(NetscapeScannerTest, aDateIsItsLeadingDigits) {
    EXPECT_EQ(scanText("<DT><A HREF=\"u\" ADD_DATE=\"12.9\" LAST_MODIFIED=\"0x10\">n</A>"),
              "link \"n\" <u> added 12 modified 0\n");
    EXPECT_EQ(scanText("<DT><A HREF=\"u\" ADD_DATE=\"0012 34\">n</A>"), "link \"n\" <u> added 12\n");
}

TEST_F(NetscapeScannerTest, aDateTooLargeIsTheLargest) {
    const double largest = 18446744073709551615.0;
    for (const std::string digits :
         {"18446744073709551615", "18446744073709551616", "99999999999999999999999"})
        EXPECT_EQ(scanFirst("<DT><A HREF=\"u\" ADD_DATE=\"" + digits + "\">n</A>")->itemDateAdded(),
                  Date::fromUnixSeconds(largest));
    EXPECT_EQ(
        scanFirst("<DT><A HREF=\"u\" ADD_DATE=\"" + std::string(100000, '9') + "\">n</A>")->itemDateAdded(),
        Date::fromUnixSeconds(largest));
}

TEST_F(NetscapeScannerTest, onlyTheFirstDateOfATagCounts) {
    EXPECT_EQ(scanText("<DT><A HREF=\"u\" ADD_DATE=\"1\" ADD_DATE=\"2\">n</A>"), "link \"n\" <u> added 1\n");
    EXPECT_EQ(scanText("<DT><A HREF=\"u\" ADD_DATE=1 ADD_DATE=\"2\">n</A>"), "link \"n\" <u> added null\n")
        << "a first one without quotes is no date, and the second one does not count";
    EXPECT_EQ(scanText("<DT><A HREF=\"u\">ADD_DATE=\"3\"</A>"), "link \"ADD_DATE=\\\"3\\\"\" <u> added 3\n");
}

TEST_F(NetscapeScannerTest, aDateCountsUpToTheNextCursorIncluded) {
    EXPECT_EQ(scanText("<DT><A HREF=\"u\">n</A>ADD_DATE=\"4\""), "link \"n\" <u> added 4\n");
    EXPECT_EQ(scanText("<DT><A HREF=\"u\">n</A> ADD_DATE=\"4\""), "link \"n\" <u> added null\n");
    EXPECT_EQ(scanText("<DT><H3>n</H3>LAST_MODIFIED=\"4\""), "folder \"n\" added null modified 4\n");
    EXPECT_EQ(scanText("<DT><H3>n</H3> LAST_MODIFIED=\"4\""), "folder \"n\" added null\n");
}

TEST_F(NetscapeScannerTest, aDateWhoseQuoteNeverClosesIsNone) {
    EXPECT_EQ(scanText("<DT><H3>n</H3>ADD_DATE=\"4"), "folder \"n\" added null\n");
    EXPECT_EQ(scanText("<DT><H3>n</H3>ADD_DATE=\""), "folder \"n\" added null\n");
    EXPECT_EQ(scanText("<DT><H3>n</H3>ADD_DATE="), "folder \"n\" added null\n");
}

} // namespace
} // namespace tabulon
