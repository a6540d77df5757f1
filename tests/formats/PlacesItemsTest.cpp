// Tests the reader of the bookmarks that Firefox's library copies, together with the copied HTML.
#include "formats/import/PlacesItems.h"

#include "formats/import/NestedLinks.h"
#include "tests/BriefTree.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

std::string places(std::string_view json, std::string_view html = {}) {
    const auto root = readPlacesItems(json, html, Date());
    return root ? briefly(**root) : "failed";
}

std::string nested(std::string_view html) {
    const auto root = readNestedLinks(html, Date());
    return root ? briefly(**root) : "failed";
}

constexpr auto kLink = R"({"title":"A","id":1,"tags":"t","type":"text/x-moz-place","uri":"a:1"})";
constexpr auto kFolder = R"({"type":"text/x-moz-place-container","title":"F"})";
constexpr auto kSeparator = R"({"type":"text/x-moz-place-separator","title":""})";

TEST(PlacesItemsTest, itemsStandBetweenCommasOrLines) {
    const std::string link = kLink;
    EXPECT_EQ(places(link), "A=a:1");
    EXPECT_EQ(places(link + "," + kFolder + "," + kSeparator), "A=a:1 F[] -");
    EXPECT_EQ(places(link + "\r\n" + kFolder + ",\n" + link + "\n"), "A=a:1 F[] A=a:1");
    EXPECT_EQ(places(""), "");
}

TEST(PlacesItemsTest, childrenThatAreWrittenAreRead) {
    EXPECT_EQ(
        places(R"({"children":[{"uri":"a:1","title":"x"},{"children":[]},{"title":"none"}],"title":"F"})"),
        "F[x=a:1 []]");
    EXPECT_EQ(places(R"({"uri":"a:1","livemark":{"uri":"b:2"},"annos":[{"uri":"c:3"}]})"), "=a:1");
    EXPECT_EQ(places(R"({"uri":"place:sort=8","title":"S","type":"text/x-moz-place-container"})"), "S[]");
}

TEST(PlacesItemsTest, whatIsNoListFails) {
    for (const char* json : {"{", "x", "{}}", "{\"a\":}", "]", "[1", "\"", "{\"title\":\"\xFF\"}"})
        EXPECT_EQ(places(json), "failed") << json;
    EXPECT_EQ(places("1, \"uri\", [{\"uri\":\"a:1\"}], {}"), "");
}

TEST(PlacesItemsTest, theHTMLFillsFoldersWhereItHasTheSameItems) {
    const std::string both = std::string(kLink) + "," + kFolder;
    EXPECT_EQ(places(both, "<a href=b:2>B</a><dl><dt>G</dt><dd><a href=c:3>C</a></dd></dl>"),
              "A=a:1 F[C=c:3]");
    EXPECT_EQ(places(both, "<dl><dt>G</dt><dd><a href=c:3>C</a></dd></dl>"), "A=a:1 F[]") << "one too few";
    EXPECT_EQ(places(both, "<dl></dl><a href=b:2>B</a>"), "A=a:1 F[]") << "in another order";
    EXPECT_EQ(places(both, ""), "A=a:1 F[]");
}

TEST(NestedLinksTest, listsAreFolders) {
    EXPECT_EQ(nested("<A HREF=\"a:1?&amp;\">A &amp; a</A>\n<HR>\n<DL><DT>F</DT><DD><A "
                     "HREF=a:2>B</A></DD><DD><DL><DT>G</DT>"
                     "</DL></DD></DL>"),
              "A & a=a:1?& - F[B=a:2 G[]]");
    EXPECT_EQ(nested("<a>no address</a> <p>text <area href=a:1>"), "");
    EXPECT_EQ(nested("<dl><dt>first</dt><dt>second</dt><dd>x</dl>"), "first[]");
    EXPECT_EQ(nested("\xFF<a href=a:1>\xFE</a>"), "\uFFFD=a:1");
}

TEST(NestedLinksTest, deepListsAreReadWithoutRecursion) {
    std::string html;
    for (int depth = 0; depth < 100000; ++depth)
        html += "<dl>";
    const auto root = readNestedLinks(html + "<a href=a:1>x</a>", Date());
    if (root)
        EXPECT_TRUE((*root)->hasChildren());
    else
        EXPECT_FALSE(root.error().message.empty());
}

} // namespace
} // namespace tabulon
