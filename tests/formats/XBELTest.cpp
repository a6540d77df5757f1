// Tests the exact output of the XBEL export.
#include "formats/export/XBEL.h"

#include "tests/formats/TreeFixture.h"

namespace tabulon {
namespace {

const std::string kXbelHeader = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<!DOCTYPE xbel>\n"
                                "<!-- Created by Tabulon - https://tabulon.example/ -->\n"
                                "<xbel version=\"1.0\">\n";

class XBEL : public TreeTest {
protected:
    // Returns the text between the header and the end tag of the root element.
    std::string body(const XBELExportOptions& options = {}) {
        const std::string xbel = exportToXBEL(*master, options).value();
        EXPECT_TRUE(xbel.starts_with(kXbelHeader));
        EXPECT_TRUE(xbel.ends_with("</xbel>\n"));
        return xbel.substr(kXbelHeader.size(), xbel.size() - kXbelHeader.size() - 8);
    }
};

TEST_F(XBEL, emptyDocumentIsHeaderAndEnd) {
    EXPECT_EQ(exportToXBEL(*master, {}).value(), kXbelHeader + "</xbel>\n");
    master->makeChildList();
    EXPECT_EQ(body(), "");
}

TEST_F(XBEL, expandedEmptyFolder) {
    addFolder(*master, "Empty").setShowHier(true);
    EXPECT_EQ(body(), "<folder folded=\"no\">\n<title>Empty</title>\n</folder>\n");
}

TEST_F(XBEL, collapsedFolderWithItsContentsOneTabDeeper) {
    Bookmark& folder = addFolder(*master, "A & B");
    addLink(folder, "n", "https://example.org/?a=1&b=2");
    addSeparator(folder);
    EXPECT_EQ(body(), "<folder folded=\"yes\">\n"
                      "<title>A &amp; B</title>\n"
                      "\t<bookmark href=\"https://example.org/?a=1&amp;b=2\">\n"
                      "\t<title>n</title>\n"
                      "\t</bookmark>\n"
                      "\t<separator>\n"
                      "\t</separator>\n"
                      "</folder>\n");
}

TEST_F(XBEL, linkWithoutURLHasNoHref) {
    addLink(*master, "n", nullptr);
    addLink(*master, nullptr, "");
    addLink(*master, "", "u");
    EXPECT_EQ(body(), "<bookmark>\n<title>n</title>\n</bookmark>\n"
                      "<bookmark>\n</bookmark>\n"
                      "<bookmark href=\"u\">\n</bookmark>\n");
}

TEST_F(XBEL, noteOfALinkIsEscapedTwiceAndThatOfAFolderOnce) {
    addLink(*master, nullptr, nullptr, "a & \"b\"");
    addFolder(*master, nullptr, "a & \"b\"");
    EXPECT_EQ(body(), "<bookmark>\n<desc>a &amp;amp; &amp;quot;b&amp;quot;</desc>\n</bookmark>\n"
                      "<folder folded=\"yes\">\n<desc>a &amp; &apos;b&apos;</desc>\n</folder>\n");
}

TEST_F(XBEL, noteThatIsOnlyALineBreakIsOneSpace) {
    addLink(*master, nullptr, nullptr, "\n");
    addFolder(*master, nullptr, "\n");
    EXPECT_EQ(body(), "<bookmark>\n<desc> </desc>\n</bookmark>\n"
                      "<folder folded=\"yes\">\n<desc> </desc>\n</folder>\n");
}

TEST_F(XBEL, tagsOfLinksAreMetadataAndThoseOfFoldersAreNot) {
    Bookmark& folder = addFolder(*master, nullptr);
    folder.setItemTags("never");
    addLink(folder, nullptr, nullptr, nullptr, "x <y>");
    EXPECT_EQ(body(), "<folder folded=\"yes\">\n"
                      "\t<bookmark>\n"
                      "\t<info>\n"
                      "\t\t<metadata owner=\"https://tabulon.example/xbel/tags\">x &lt;y&gt;</metadata>\n"
                      "\t</info>\n"
                      "\t</bookmark>\n"
                      "</folder>\n");
}

TEST_F(XBEL, everyLevelIsSortedByNameWhenAsked) {
    Bookmark& folder = addFolder(*master, "Banana");
    addLink(folder, "y", nullptr);
    addLink(folder, "X", nullptr);
    addLink(*master, "apple", nullptr);
    const Collation collation("en_US");
    EXPECT_EQ(body({.sortByName = &collation}), "<bookmark>\n<title>apple</title>\n</bookmark>\n"
                                                "<folder folded=\"yes\">\n<title>Banana</title>\n"
                                                "\t<bookmark>\n\t<title>X</title>\n\t</bookmark>\n"
                                                "\t<bookmark>\n\t<title>y</title>\n\t</bookmark>\n"
                                                "</folder>\n");
}

TEST_F(XBEL, separatorThatIsAFolderHasNoContents) {
    Bookmark& separator = addSeparator(*master);
    separator.setItemFolder(true);
    addLink(separator, "n", "u");
    EXPECT_EQ(body(), "<separator>\n</separator>\n");
}

TEST_F(XBEL, whatIsNestedTooDeepIsRefused) {
    nest(200000);
    const Result<std::string> xbel = exportToXBEL(*master, {});
    ASSERT_FALSE(xbel);
    EXPECT_NE(xbel.error().message.find("nested too deep"), std::string::npos);
}

TEST_F(XBEL, aFileLargerThanAllowedIsRefused) {
    for (int i = 0; i < 100; ++i)
        addLink(*master, "name", "https://example.org/");
    EXPECT_TRUE(exportToXBEL(*master, {.mostBytes = 10000}));
    EXPECT_FALSE(exportToXBEL(*master, {.mostBytes = 5000}));
    const std::size_t size = exportToXBEL(*master, {})->size();
    EXPECT_TRUE(exportToXBEL(*master, {.mostBytes = size}));
    EXPECT_FALSE(exportToXBEL(*master, {.mostBytes = size - 1}));
}

} // namespace
} // namespace tabulon
