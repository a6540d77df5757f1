// Tests how the tag scanner reads links: address, kind and name, and the conditions that end a scan.
#include "tests/formats/ScanFixture.h"

namespace tabulon {
namespace {

using NetscapeScannerLinkTest = test::ScanFixture;

std::string linkNamed(const std::string& name) {
    return "<DT><A HREF=\"u\">" + name + "</A>";
}

TEST_F(NetscapeScannerLinkTest, addressIsUnescapedAndDecodedLeniently) {
    EXPECT_EQ(scanFirst("<DT><A HREF=\"http://a.example/?a=1&amp;b=2&c\">n</A>")->itemURL().view(),
              "http://a.example/?a=1&b=2&c");
    EXPECT_EQ(scanFirst("<DT><A HREF=\"caf\xE9\">n</A>")->itemURL().view(), "caf\uFFFD");
    EXPECT_EQ(scanFirst("<DT><A HREF=\"javascript:alert(&quot;&#39;é\n&quot;)\">n</A>")->itemURL().view(),
              "javascript:alert(\"'é\n\")");
}

TEST_F(NetscapeScannerLinkTest, anEmptyAddressIsEmptyNotNull) {
    const Ref<Bookmark> link = scanFirst("<DT><A HREF=\"\">n</A>");
    EXPECT_FALSE(link->itemURL().isNull());
    EXPECT_TRUE(link->itemURL().isEmpty());
}

TEST_F(NetscapeScannerLinkTest, kindIsClassifiedByTheAddress) {
    const std::pair<const char*, int> kinds[] = {{"http://a", kWebType},   {"mailto:a@b", kMailType},
                                                 {"FTP://a", kFTPType},    {"file:///a", kFileType},
                                                 {"news:a", kNewsType},    {"telnet:a", kTelnetType},
                                                 {"whois:a", kFingerType}, {"a@b", kMailType},
                                                 {"Http://a", kWebType},   {"&#109;ailto:a", kMailType}};
    for (const auto& [url, type] : kinds) {
        const Ref<Bookmark> link = scanFirst("<DT><A HREF=\"" + std::string(url) + "\">n</A>");
        EXPECT_EQ(link->getType(), type) << url;
        EXPECT_EQ(link->itemIcon(), iconForType(link->getType())) << url;
    }
}

TEST_F(NetscapeScannerLinkTest, anInPageAnchorIsSkippedForTheNextAnchor) {
    EXPECT_EQ(scanText("<DT><A HREF=\"#top\">Top</A> <A HREF=\"http://a.example/\">A</A>"),
              "link \"A\" <http://a.example/> added null\n");
    EXPECT_EQ(scanText("<DT><A HREF=\"#1\"><A HREF=\"#2\"><A HREF=\"#\"><A HREF=\"u\">n</A>"),
              "link \"n\" <u> added null\n");
    EXPECT_EQ(scanText("<DT><A HREF=\"#top\">Top</A><DT><A HREF=\"u\">n</A><HR></DL>"),
              "link \"n\" <u> added null\nseparator null added now\n")
        << "the link found counts for this token and is not read again for its own";
    EXPECT_EQ(scanText("<DT><A HREF=\" #top\">Top</A>"), "link \"Top\" < #top> added null\n");
}

TEST_F(NetscapeScannerLinkTest, anInPageAnchorWithoutAnotherLinkEndsTheScan) {
    EXPECT_EQ(scanText("<HR><DT><A HREF=\"#top\">Top</A><HR></DL>"), "separator null added now\n");
}

TEST_F(NetscapeScannerLinkTest, datesOfASkippedAnchorCountForTheToken) {
    EXPECT_EQ(scanText("<DT><A HREF=\"#\" ADD_DATE=\"1\">x</A><A HREF=\"u\" ADD_DATE=\"2\">n</A>"),
              "link \"n\" <u> added 1\n");
}

TEST_F(NetscapeScannerLinkTest, theAddressMayStandAnywhereBehindTheAnchor) {
    EXPECT_EQ(scanText("<DT><A NAME=x ADD_DATE=\"1\" HREF = \"u\">n</A>"), "link \"n\" <u> added 1\n");
    EXPECT_EQ(scanText("<DT><A NAME=\"x\">no link</A> HREF=\"u\">n</A>"), "link \"n\" <u> added null\n");
}

TEST_F(NetscapeScannerLinkTest, theAnchorIsSearchedFromTheFifthByteOfTheToken) {
    EXPECT_EQ(scanText("<D<A.A HREF=\"u\"><A HREF=\"v\">n</A>"), "link \"n\" <v> added null\n")
        << "the first <A stands too early";
}

TEST_F(NetscapeScannerLinkTest, nothingNeedsToStandBetweenTheAnchorAndTheAddress) {
    EXPECT_EQ(scanText("<DT><AHREF=\"u\">n</A>"), "link \"Untitled\" <u> added null\n");
    EXPECT_EQ(scanText("<DT><A HREF\"u\">n</A>"), "link \"n\" <u> added null\n");
}

TEST_F(NetscapeScannerLinkTest, everyMissingPartOfALinkEndsTheScanAndKeepsWhatWasThere) {
    for (const std::string rest :
         {"<DT>.A", "<DT><A", "<DT><A ", "<DT><A HREF", "<DT><A HREF=", "<DT><A HREF=\"", "<DT><A HREF=\"u",
          "<DT><A HREF=\"u\"", "<DT><A HREF=\"u\" ADD_DATE", "<DT><A HREF=\"u\">", "<DT><A HREF=\"u\">n",
          "<DT><A HREF=\"u\">n</A"})
        EXPECT_EQ(scanText(linkNamed("first") + rest), "link \"first\" <u> added null\n") << rest;
}

TEST_F(NetscapeScannerLinkTest, withoutABlankAfterTheAnchorTheLinkIsUntitled) {
    EXPECT_EQ(scanText("<DT><A\tHREF=\"u\" ADD_DATE=\"5\">n</A>"), "link \"Untitled\" <u> added null\n")
        << "the next cursor stands before the date";
    EXPECT_EQ(scanText("<DT><A\nHREF=\"u\">n</A>"), "link \"Untitled\" <u> added null\n");
    EXPECT_EQ(scanText("<DT><AREA HREF=\"u\">n</A>"), "link \"Untitled\" <u> added null\n");
    EXPECT_EQ(scanText("<DT><A\tADD_DATE=\"5\" HREF=\"u\">n</A>"), "link \"Untitled\" <u> added 5\n");
}

TEST_F(NetscapeScannerLinkTest, anUntitledLinkNeedsNoEndOfItsTag) {
    EXPECT_EQ(scanText("<DT><A\tHREF=\"u\""), "link \"Untitled\" <u> added null\n");
}

TEST_F(NetscapeScannerLinkTest, afterAnUntitledLinkTheScanGoesOnSixBytesFurther) {
    EXPECT_EQ(scanText("<DT><A\t<DT><A\tHREF=\"u\"></DL>"), "link \"Untitled\" <u> added null\n")
        << "the second <D is passed over; its address served the first link";
    EXPECT_EQ(scanText("<DT><A\t...<DT><A\tHREF=\"u\"></DL>"),
              "link \"Untitled\" <u> added null\nlink \"Untitled\" <u> added null\n")
        << "both find the same address";
}

TEST_F(NetscapeScannerLinkTest, linksThatShareAnAddressShareItsText) {
    const Ref<Bookmark> root = scan("<DT><A\t...<DT><A\tHREF=\"mailto:a&amp;b\"></DL>");
    ASSERT_EQ(count(*root), 2u);
    EXPECT_TRUE(root->getChild()->itemURL().sharesBytesWith(root->getLast()->itemURL()));
    EXPECT_EQ(root->getChild()->getType(), kMailType);
    EXPECT_EQ(root->getLast()->getType(), kMailType);
}

TEST_F(NetscapeScannerLinkTest, nameIsUnescapedAndDecodedLeniently) {
    EXPECT_EQ(nameOfFirst(linkNamed("Q&amp;A &lt;b&gt; &#233; &nbsp; &amp;amp;")), "Q&A <b> é &nbsp; &amp;");
    EXPECT_EQ(nameOfFirst(linkNamed("caf\xE9 \xE2\x82")), "caf\uFFFD \uFFFD");
    EXPECT_EQ(nameOfFirst(linkNamed("日本語 \U0001F516")), "日本語 \U0001F516");
}

TEST_F(NetscapeScannerLinkTest, wholeTagsAroundTheNameAreLeftOut) {
    EXPECT_EQ(nameOfFirst(linkNamed("<b>bold</b>")), "bold");
    EXPECT_EQ(nameOfFirst(linkNamed("<font><img src=\"x\">n</i></font>")), "n");
    EXPECT_EQ(nameOfFirst(linkNamed("a<b>c</b>d")), "a<b>c</b>d");
    EXPECT_EQ(nameOfFirst(linkNamed("n<br><>")), "n");
    EXPECT_EQ(nameOfFirst(linkNamed("<b>a > b</b>")), "a > b");
}

TEST_F(NetscapeScannerLinkTest, tagsBehindLeadingBlanksStay) {
    EXPECT_EQ(nameOfFirst(linkNamed("\n <b>n</b>")), "<b>n");
}

TEST_F(NetscapeScannerLinkTest, loneAngleBracketsBelongToTheName) {
    EXPECT_EQ(nameOfFirst(linkNamed("<3 music")), "<3 music");
    EXPECT_EQ(nameOfFirst(linkNamed("music >")), "music >");
    EXPECT_EQ(nameOfFirst(linkNamed("-->")), "-->");
    EXPECT_EQ(nameOfFirst(linkNamed("<<b>x")), "x");
}

TEST_F(NetscapeScannerLinkTest, leadingBlanksAreLeftOutAndTrailingOnesStay) {
    EXPECT_EQ(nameOfFirst(linkNamed("\t\r\n  n \t")), "n \t");
    EXPECT_EQ(nameOfFirst(linkNamed("\fn")), "\fn");
    EXPECT_EQ(nameOfFirst(linkNamed("&#32;n")), " n") << "blanks are left out before entities are undone";
}

TEST_F(NetscapeScannerLinkTest, lineEndsInANameBecomeBlanks) {
    EXPECT_EQ(nameOfFirst(linkNamed("one\r\ntwo\tthree\n")), "one  two\tthree ");
    EXPECT_EQ(nameOfFirst(linkNamed("a&#10;b")), "a\nb") << "escaped ones stay";
}

TEST_F(NetscapeScannerLinkTest, aLinkWithoutANameIsUntitled) {
    for (const char* name : {"", " \t\r\n", "<b></b>", "<img src=x>", "<b> </b>"})
        EXPECT_EQ(nameOfFirst(linkNamed(name)), "Untitled") << name;
}

TEST_F(NetscapeScannerLinkTest, aNameIsCutAfterATousandAndTwentyFourBytes) {
    EXPECT_EQ(nameOfFirst(linkNamed(std::string(1024, 'n'))), std::string(1024, 'n'));
    EXPECT_EQ(nameOfFirst(linkNamed(std::string(1025, 'n'))), std::string(1024, 'n'));
    EXPECT_EQ(nameOfFirst(linkNamed("  <b>" + std::string(5000, 'n'))), "<b>" + std::string(1021, 'n'))
        << "blanks in front do not count";
}

TEST_F(NetscapeScannerLinkTest, aNameCutInsideACharacterLosesOnlyThatCharacter) {
    EXPECT_EQ(nameOfFirst(linkNamed(std::string(1023, 'n') + "é")), std::string(1023, 'n') + "\uFFFD");
    EXPECT_EQ(nameOfFirst(linkNamed(std::string(1021, 'n') + "&amp;")), std::string(1021, 'n') + "&am")
        << "an entity cut in two stays as it stands";
}

TEST_F(NetscapeScannerLinkTest, aLinkNamedMinusBecomesASeparator) {
    const Ref<Bookmark> root = scan("<DT><A HREF=\"http://a.example/\" ADD_DATE=\"5\">-</A><DD>note<");
    EXPECT_EQ(textOf(*root), "separator \"-\" <http://a.example/> added 5 note \"note\"\n");
    EXPECT_TRUE(scanFirst(linkNamed("&#45;"))->isSeparator());
    EXPECT_TRUE(scanFirst(linkNamed("<b>\n-</b>"))->isSeparator());
    EXPECT_FALSE(scanFirst(linkNamed("- "))->isSeparator());
    EXPECT_FALSE(scanFirst(linkNamed("--"))->isSeparator());
    EXPECT_FALSE(scanFirst("<DT><H3>-</H3>")->isSeparator());
}

TEST_F(NetscapeScannerLinkTest, aSeparatorMadeOfALinkHasNoDateWithoutAnAttribute) {
    EXPECT_TRUE(scanFirst(linkNamed("-"))->itemDateAdded().isNull());
}

TEST_F(NetscapeScannerLinkTest, aGreaterSignInTheAddressDoesNotEndTheTag) {
    EXPECT_EQ(scanText("<DT><A HREF=\"a>b\">n</A>"), "link \"n\" <a>b> added null\n");
    EXPECT_EQ(scanText("<DT><A HREF=\"u\" TAGS=\"a>b\">n</A>"), "link \"b\\\">n\" <u> added null\n")
        << "the tag ends with the first one behind the address, quotes or not";
}

TEST_F(NetscapeScannerLinkTest, otherAttributesAreReadPast) {
    EXPECT_EQ(scanText("<DT><A HREF=\"u\" ICON=\"data:image/png;base64,AAAA==\" TAGS=\"a,b\" ADD_DATE=\"7\" "
                       "SHORTCUTURL=\"k\">n</A>"),
              "link \"n\" <u> added 7\n");
}

TEST_F(NetscapeScannerLinkTest, nullBytesAreBytesLikeOthers) {
    using namespace std::string_literals;
    EXPECT_EQ(scanText("<DT><A HREF=\"a\0b\">c\0d</A>\0<HR>\0</DL>"s),
              "link \"c\\x00d\" <a\\x00b> added null\nseparator null added now\n");
}

} // namespace
} // namespace tabulon
