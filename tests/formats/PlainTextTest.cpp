// Tests the exact output of the plain-text export.
#include "formats/export/PlainText.h"

#include "tests/formats/TreeFixture.h"

namespace tabulon {
namespace {

class PlainText : public TreeTest {
protected:
    std::string text(const TextExportOptions& options) { return exportToText(*master, options).value(); }

    // Adds links, a folder and a separator on two levels.
    void fill() {
        addLink(*master, "b", "https://b/", "note\nof b", "t1, t2");
        Bookmark& folder = addFolder(*master, "Folder", "about");
        addLink(folder, "a", "https://z/");
        addSeparator(folder);
        addLink(folder, "C", "https://a/");
    }
};

TEST_F(PlainText, withoutAnyColumnThereAreOnlyLines) {
    fill();
    EXPECT_EQ(text({}), "\n\n\n\n\n");
}

TEST_F(PlainText, emptyDocumentIsNothing) {
    EXPECT_EQ(text({.name = true}), "");
}

TEST_F(PlainText, urlAloneGivesEachFolderALineWithATab) {
    fill();
    EXPECT_EQ(text({.url = true}), "https://b/\t\n\t\nhttps://z/\t\n\t\nhttps://a/\t\n");
}

TEST_F(PlainText, everyColumnInItsOrder) {
    fill();
    EXPECT_EQ(text({.name = true, .url = true, .tags = true, .note = true}),
              "b\thttps://b/\tt1, t2\tnote of b\n"
              "Folder\t\t\tabout\n"
              "a\thttps://z/\t\t\n"
              "\t\t\t\n"
              "C\thttps://a/\t\t\n");
}

TEST_F(PlainText, emptyNoteAddsNothingNotEvenATab) {
    addLink(*master, nullptr, nullptr, "");
    addLink(*master, nullptr, nullptr, "one\r\ntwo \"three\"");
    EXPECT_EQ(text({.note = true}), "\none  two 'three'\n");
}

TEST_F(PlainText, withoutFoldersAllLinksOfAllDepthsAreOneList) {
    fill();
    EXPECT_EQ(text({.name = true, .skipFolders = true}), "b\t\na\t\n\t\nC\t\n");
    EXPECT_EQ(text({.name = true, .skipFolders = true, .skipSeparators = true}), "b\t\na\t\nC\t\n");
}

TEST_F(PlainText, sortsByNameWhereNamesAreWrittenElseByURL) {
    fill();
    const Collation collation("en_US");
    EXPECT_EQ(text({.name = true, .skipFolders = true, .skipSeparators = true, .sort = &collation}),
              "a\t\nb\t\nC\t\n");
    EXPECT_EQ(text({.url = true, .skipFolders = true, .skipSeparators = true, .sort = &collation}),
              "https://a/\t\nhttps://b/\t\nhttps://z/\t\n");
}

TEST_F(PlainText, eachListIsSortedByItself) {
    fill();
    const Collation collation("en_US");
    EXPECT_EQ(text({.name = true, .skipSeparators = true, .sort = &collation}), "b\t\nFolder\t\na\t\nC\t\n");
}

TEST_F(PlainText, deepTreesAreWrittenWithoutRecursion) {
    addLink(nest(200000), "deep", nullptr);
    const std::string lines = text({.name = true});
    EXPECT_TRUE(lines.ends_with("f\t\ndeep\t\n"));
}

TEST_F(PlainText, aTextLargerThanAllowedIsRefused) {
    fill();
    EXPECT_FALSE(exportToText(*master, {.name = true, .url = true, .mostBytes = 20}));
}

TEST_F(PlainText, aTextIsRefusedFromTheFirstByteThatIsTooMany) {
    addLink(*master, "name", "u");
    const std::size_t size = exportToText(*master, {.name = true})->size();
    EXPECT_TRUE(exportToText(*master, {.name = true, .mostBytes = size}));
    EXPECT_FALSE(exportToText(*master, {.name = true, .mostBytes = size - 1}));
}

} // namespace
} // namespace tabulon
