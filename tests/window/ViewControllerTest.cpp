// The controller and its window: title, empty state, URL field, export, alerts.
#include "window/ViewController.h"

#include "base/Settings.h"
#include "tests/window/WindowFixture.h"
#include "window/SharedAlerts.h"

namespace tabulon {
namespace {

using ViewControllerTest = WindowTest;

TEST_F(ViewControllerTest, WindowShowsNameFileAndEditedState) {
    open();
    EXPECT_EQ(window->title, "Untitled");
    EXPECT_FALSE(window->edited);
    document.setFileName("/tmp/Links.tbln");
    EXPECT_EQ(window->title, "Links");
    EXPECT_EQ(window->file, "/tmp/Links.tbln");
    controller->outline().makeDirty();
    EXPECT_TRUE(window->edited);
}

TEST_F(ViewControllerTest, EmptyDocumentShowsTheEmptyState) {
    open();
    EXPECT_TRUE(window->empty);
    const Ref<Bookmark> master = makeFolder("Master");
    master->addChild(makeLink("a"));
    document.setMaster(master);
    document.updateUI();
    EXPECT_FALSE(window->empty);
    EXPECT_EQ(rowNames(), std::vector<std::string>{"a"});
}

TEST_F(ViewControllerTest, CountsTakeLinksOfAllDepthsAndNoSeparators) {
    Bookmark& folder = add(makeFolder("f", false));
    add(makeLink("a"), &folder);
    add(makeSeparator(), &folder);
    add(makeFolder("g"), &folder);
    add(makeLink("b"));
    open();
    EXPECT_EQ(controller->statusLine().countsText(), "2 bookmarks in 2 folders");
    EXPECT_EQ(window->urlField, "2 bookmarks in 2 folders");
}

TEST_F(ViewControllerTest, CountsFollowChangesOfTheTree) {
    open();
    EXPECT_EQ(controller->statusLine().countsText(), "0 bookmarks in 0 folders");
    add(makeLink("a"));
    controller->outline().makeDirty();
    EXPECT_EQ(controller->statusLine().countsText(), "1 bookmark in 0 folders");
}

TEST_F(ViewControllerTest, PointerShowsTheURLOfItsRowAndTheCountsElsewhere) {
    add(makeFolder("f")).setItemURL("https://hidden.example/");
    add(makeLink("a", "https://a.example/"));
    open();
    controller->outline().mouseMoved(1);
    EXPECT_EQ(window->urlField, "https://a.example/");
    controller->outline().mouseMoved(0);
    EXPECT_EQ(window->urlField, "") << "a folder shows none";
    controller->outline().mouseMoved(std::nullopt);
    EXPECT_EQ(window->urlField, "1 bookmark in 1 folder");
}

TEST_F(ViewControllerTest, PointerThatLeavesGivesTheFieldBackToTheSelection) {
    Bookmark& a = add(makeLink("a", "https://a.example/"));
    add(makeLink("b", "https://b.example/"));
    open();
    select({&a});
    controller->outline().selectionDidChange(SelectedBy::User);
    EXPECT_EQ(window->urlField, "https://a.example/");
    controller->outline().mouseMoved(1);
    controller->outline().mouseExited();
    EXPECT_EQ(window->urlField, "https://a.example/");
    select({});
    controller->outline().mouseExited();
    EXPECT_EQ(window->urlField, "2 bookmarks in 0 folders");
}

TEST_F(ViewControllerTest, PointerThatStaysWhileRowsChangeShowsTheRowThatCameUnderIt) {
    Bookmark& folder = add(makeFolder("f", false));
    add(makeLink("inside", "https://inside.example/"), &folder);
    add(makeLink("after", "https://after.example/"));
    open();
    controller->outline().mouseMoved(1);
    EXPECT_EQ(window->urlField, "https://after.example/");
    controller->outline().expandItem(folder);
    controller->outline().mouseMoved(1);
    EXPECT_EQ(window->urlField, "https://inside.example/");
    controller->expanding().collapseAll();
    controller->outline().mouseMoved(1);
    EXPECT_EQ(window->urlField, "https://after.example/");
}

TEST_F(ViewControllerTest, NothingSelectedLeavesTheFieldAsItIs) {
    add(makeLink("a", "https://a.example/"));
    open();
    controller->outline().mouseMoved(0);
    controller->outline().selectionDidChange(SelectedBy::User);
    EXPECT_EQ(window->urlField, "https://a.example/");
}

TEST_F(ViewControllerTest, ExportFollowsTheSortSetting) {
    add(makeLink("b", "https://b.example/"));
    add(makeLink("A", "https://a.example/"));
    open();
    const auto before = [](const std::string& text, const char* first, const char* second) {
        return text.find(first) < text.find(second);
    };
    EXPECT_TRUE(before(controller->exporting().exportToHTML().value(), "b.example", "a.example"));
    setValue(base.defaults, settings::kExportSortName, true);
    EXPECT_TRUE(before(controller->exporting().exportToHTML().value(), "a.example", "b.example"));
}

TEST_F(ViewControllerTest, NoSelectionAlertIsASheetWithOneButton) {
    open();
    noSelection(platform(), document);
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "Nothing is selected");
    EXPECT_EQ(alerts.shown[0].informative, "Please select one or more bookmarks first.");
    EXPECT_EQ(alerts.shown[0].document, &document);
}

} // namespace
} // namespace tabulon
