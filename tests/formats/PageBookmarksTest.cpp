// Tests the tree that is built from the links of a page.
#include "formats/import/PageBookmarks.h"

#include "platform/fake/FakeBaseServices.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

class PageBookmarksTest : public testing::Test {
protected:
    static Pairs pairsOf(const Ref<Bookmark>& root) {
        Pairs pairs;
        if (root && root->getChildren())
            for (const Bookmark* child : *root->getChildren())
                pairs.emplace_back(child->itemName().string(), child->itemURL().string());
        return pairs;
    }
    Ref<Bookmark> documentOf(std::string_view html) {
        const Result<PageLinks> links = readPageLinks(html);
        EXPECT_TRUE(links);
        read = pageBookmarks(*links, isNetscapeFile(html), domain, fakes.services());
        return treeOfPage(read, fakes.services());
    }

    FakeBaseServices fakes;
    Text domain;
    PageBookmarks read;
    const std::string netscape = "<!DOCTYPE NETSCAPE-Bookmark-file-1>";
};

TEST_F(PageBookmarksTest, allLinksAreInOneList) {
    const Ref<Bookmark> root =
        documentOf("<dl><dt><h3>F</h3><dl><dt><a href=http://a/>A</a></dl><a href=mailto:b>B</a></dl>");
    EXPECT_EQ(pairsOf(root), (Pairs{{"A", "http://a/"}, {"B", "mailto:b"}}));
    EXPECT_EQ(root->itemName().view(), "Master");
    EXPECT_TRUE(root->isFolder());
    EXPECT_EQ(root->getLast()->getType(), 0) << "the kind of link is not stored";
    EXPECT_EQ(root->getLast()->itemDateAdded(), fakes.now());
}

TEST_F(PageBookmarksTest, aPageWithoutLinksIsAnEmptyDocument) {
    const Ref<Bookmark> root = documentOf("<p>nothing");
    ASSERT_TRUE(root);
    EXPECT_FALSE(root->hasChildren());
    EXPECT_EQ(read.urls, std::vector<Text>{""});
    EXPECT_EQ(read.names, std::vector<Text>{""});
}

TEST_F(PageBookmarksTest, namesLoseTheWhiteSpaceInFrontAndEmptyOnesAreUntitled) {
    EXPECT_EQ(
        pairsOf(documentOf(
            "<a href=http://a/> \t\r\nx \n y </a><a href=http://b/> \n </a><a href=http://c/>\u00a0z</a>"
            "<map><area href=http://d/></map>")),
        (Pairs{{"x \n y ", "http://a/"},
               {"Untitled", "http://b/"},
               {"\u00a0z", "http://c/"},
               {"undefined", "http://d/"}}));
}

TEST_F(PageBookmarksTest, aFormFeedInATextShiftsTheNamesBehind) {
    EXPECT_EQ(pairsOf(documentOf("<a href=http://a/>x\fy</a><a href=http://b/>z</a>")),
              (Pairs{{"x", "http://a/"}, {"y", "http://b/"}, {"z", ""}}));
    EXPECT_EQ(pairsOf(documentOf("<a href='x\fy'>x</a><a href=http://b/>z</a>")),
              (Pairs{{"x", "x"}, {"z", "y"}, {"Untitled", "http://b/"}}));
}

TEST_F(PageBookmarksTest, aPairWithoutNameAndAddressIsSkipped) {
    EXPECT_EQ(pairsOf(documentOf("<a href=''></a><a href=http://b/>b</a><a href=''>c</a>")),
              (Pairs{{"b", "http://b/"}, {"c", ""}}));
}

TEST_F(PageBookmarksTest, datesOfANetscapeFileAreKept) {
    const Ref<Bookmark> root =
        documentOf(netscape + "<DL><A HREF=http://a/ ADD_DATE=12 LAST_MODIFIED=\"34x\">a</A>"
                              "<A HREF=http://b/ ADD_DATE=\"\" LAST_MODIFIED=no>b</A>"
                              "<A HREF=http://c/ ADD_DATE=-5 LAST_MODIFIED=99999999999999999999>c</A>");
    EXPECT_EQ(read.datesAdded.size(), 4u) << "one for each link, and one after the last form feed";
    ASSERT_EQ(root->getChildren()->size(), 3u);
    const std::vector<Bookmark*> links(root->getChildren()->begin(), root->getChildren()->end());
    EXPECT_EQ(links[0]->itemDateAdded(), Date::fromUnixSeconds(12));
    EXPECT_EQ(links[0]->itemDateModified(), Date::fromUnixSeconds(34));
    EXPECT_EQ(links[1]->itemDateAdded(), fakes.now()) << "an empty date is that of the import";
    EXPECT_EQ(links[1]->itemDateModified(), Date::fromUnixSeconds(0)) << "what is no number is 0";
    EXPECT_EQ(links[2]->itemDateAdded(), Date::fromUnixSeconds(-5));
    EXPECT_EQ(links[2]->itemDateModified(), Date::fromUnixSeconds(9223372036854775807.0));
}

TEST_F(PageBookmarksTest, aLinkWithoutDateGetsThatOfTheImport) {
    const Ref<Bookmark> root = documentOf(netscape + "<A HREF=http://a/>a</A>");
    EXPECT_EQ(root->getChild()->itemDateAdded(), fakes.now());
    EXPECT_EQ(root->getChild()->itemDateModified(), fakes.now());
}

TEST_F(PageBookmarksTest, datesGoByPositionAlsoBehindASkippedPair) {
    const Ref<Bookmark> root =
        documentOf(netscape + "<A HREF='' ADD_DATE=1></A><A HREF=http://b/ ADD_DATE=2>b</A>");
    ASSERT_EQ(root->getChildren()->size(), 1u);
    EXPECT_EQ(root->getChild()->itemDateAdded(), Date::fromUnixSeconds(1));
}

TEST_F(PageBookmarksTest, datesOfOtherPagesDoNotCount) {
    for (const char* begin : {"", "<!doctype html>", " <!DOCTYPE NETSCAPE-Bookmark-file-1>",
                              "<!DOCTYPE NETSCAPE-BOOKMARK-FILE-1>"}) {
        const Ref<Bookmark> root = documentOf(std::string(begin) + "<A HREF=http://a/ ADD_DATE=12>a</A>");
        EXPECT_EQ(root->getChild()->itemDateAdded(), fakes.now()) << begin;
        EXPECT_TRUE(read.datesAdded.empty());
    }
}

TEST_F(PageBookmarksTest, theDomainComesInFrontOfASlash) {
    domain = "http://h";
    EXPECT_EQ(
        pairsOf(documentOf("<a href=/x>a</a><a href=//y/z>b</a><a href=w>c</a><a href=http://v/>d</a>")),
        (Pairs{{"a", "http://h/x"}, {"b", "http://h//y/z"}, {"c", "w"}, {"d", "http://v/"}}));
}

TEST_F(PageBookmarksTest, emptyArraysMakeNoDocument) {
    EXPECT_FALSE(newDocumentFromArraysLinks({}, {"x"}, fakes.services()));
    EXPECT_FALSE(newDocumentFromArraysLinks({"x"}, {}, fakes.services()));
    EXPECT_FALSE(treeOfPage({}, fakes.services()));
    EXPECT_EQ(pairsOf(newDocumentFromArraysLinks({"a", "b", "c"}, {"x", "y"}, fakes.services())),
              (Pairs{{"a", "x"}, {"b", "y"}}));
    EXPECT_EQ(pairsOf(newDocumentFromArraysLinks({"a", nullptr}, {nullptr, "y"}, fakes.services())),
              (Pairs{{"a", ""}, {"Untitled", "y"}}));
}

TEST_F(PageBookmarksTest, aFileInAnotherEncodingIsRead) {
    const auto root = readPageFile("<meta charset=latin1><base href=http://h/><a href='?q=\xE9'>caf\xE9</a>",
                                   {fakes.services()});
    ASSERT_TRUE(root);
    EXPECT_EQ(pairsOf(*root), (Pairs{{"café", "http://h/?q=%E9"}}));
}

TEST_F(PageBookmarksTest, aPageThatCannotBeReadIsRefusedWithASentence) {
    std::string page = "<b>";
    for (int i = 0; i < 100'000; ++i)
        page += "<div>";
    for (int i = 0; i < 100'000; ++i)
        page += "</b>";
    const auto root = readPageFile(page, {fakes.services()});
    ASSERT_FALSE(root);
    EXPECT_TRUE(root.error().message.ends_with("."));
}

} // namespace
} // namespace tabulon
