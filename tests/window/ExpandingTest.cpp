// Expanding and collapsing: rows, flags, change counts, and the selection that is kept.
#include "base/Settings.h"
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

using Names = std::vector<std::string>;

class ExpandingTest : public WindowTest {
protected:
    void SetUp() override {
        outer = &add(makeFolder("outer", false));
        inner = &add(makeFolder("inner", false), outer);
        deep = &add(makeLink("deep"), inner);
        beside = &add(makeLink("beside"), outer);
        last = &add(makeLink("last"));
        open();
    }

    Bookmark* outer = nullptr;
    Bookmark* inner = nullptr;
    Bookmark* deep = nullptr;
    Bookmark* beside = nullptr;
    Bookmark* last = nullptr;
};

TEST_F(ExpandingTest, ExpandShowsTheChildrenAndKeepsInnerFoldersClosed) {
    controller->outline().expandItem(*outer);
    EXPECT_EQ(rowNames(), (Names{"outer", "inner", "beside", "last"}));
    EXPECT_TRUE(outer->showHier());
    EXPECT_FALSE(inner->showHier());
}

TEST_F(ExpandingTest, ExpandedStateOfInnerFoldersIsRemembered) {
    controller->outline().expandItemWithChildren(*outer);
    EXPECT_EQ(rowNames(), (Names{"outer", "inner", "deep", "beside", "last"}));
    controller->outline().collapseItem(*outer);
    EXPECT_EQ(rowNames(), (Names{"outer", "last"}));
    EXPECT_TRUE(inner->showHier());
    controller->outline().expandItem(*outer);
    EXPECT_EQ(rowNames(), (Names{"outer", "inner", "deep", "beside", "last"}));
}

TEST_F(ExpandingTest, ItemWithoutARowChangesItsStateAlone) {
    controller->outline().expandItem(*inner);
    EXPECT_EQ(rowNames(), (Names{"outer", "last"}));
    EXPECT_TRUE(inner->showHier());
}

TEST_F(ExpandingTest, CollapseWithChildrenClosesEverythingBelow) {
    controller->expanding().expandAll();
    controller->outline().collapseItemWithChildren(*outer);
    EXPECT_FALSE(inner->showHier());
    EXPECT_EQ(rowNames(), (Names{"outer", "last"}));
}

TEST_F(ExpandingTest, DoubleClickOnAFolderTurnsItAndCountsTwice) {
    controller->expanding().doubleClickFolder(*outer);
    EXPECT_EQ(rowNames(), (Names{"outer", "inner", "beside", "last"}));
    EXPECT_EQ(document.changeCount(), 2);
    controller->expanding().doubleClickFolder(*outer);
    EXPECT_EQ(rowNames(), (Names{"outer", "last"}));
    setValue(base.defaults, settings::kRememberDesktop, false);
    controller->expanding().doubleClickFolder(*outer);
    EXPECT_EQ(document.changeCount(), 4);
}

TEST_F(ExpandingTest, EachChangedFolderCountsAsOneChange) {
    controller->expanding().expandAll();
    EXPECT_EQ(document.changeCount(), 2);
    controller->expanding().expandAll();
    EXPECT_EQ(document.changeCount(), 2) << "nothing left to expand";
}

TEST_F(ExpandingTest, WithRememberDesktopOffTheDocumentStaysClean) {
    setValue(base.defaults, settings::kRememberDesktop, false);
    controller->expanding().expandAll();
    controller->outline().collapseItem(*outer);
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_FALSE(outer->showHier());
    EXPECT_TRUE(inner->showHier());
}

TEST_F(ExpandingTest, LinksAreNoFoldersAndStayAsTheyAre) {
    controller->outline().expandItem(*last);
    EXPECT_FALSE(last->showHier());
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(ExpandingTest, EmptyFolderChangesStateWithoutRows) {
    outer->removeLast();
    outer->removeLast();
    controller->outline().expandItem(*outer);
    EXPECT_TRUE(outer->showHier());
    EXPECT_EQ(outline().reloaded, (std::vector<RowRange>{{0, 1}}));
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(ExpandingTest, CommandsWithoutASelectionAlert) {
    using Command = void (ExpandCommands::*)();
    for (const Command command : {&ExpandCommands::expandFolder, &ExpandCommands::expandFolderPlus,
                                  &ExpandCommands::collapseFolder, &ExpandCommands::collapseFolderPlus})
        (controller->expanding().*command)();
    ASSERT_EQ(alerts.shown.size(), 4u);
    EXPECT_EQ(alerts.shown[0].message, "Nothing is selected");
    EXPECT_EQ(alerts.shown[0].informative, "Please select a folder first.");
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::Warning);
    EXPECT_EQ(alerts.shown[0].document, &document);
    ASSERT_EQ(alerts.shown[0].buttons.size(), 1u);
    EXPECT_EQ(alerts.shown[0].buttons[0].title, "OK");
}

TEST_F(ExpandingTest, CommandsActOnSelectedRowsFromTheHighestDown) {
    controller->outline().expandItem(*outer);
    select({outer, inner, last});
    controller->expanding().expandFolder();
    EXPECT_EQ(rowNames(), (Names{"outer", "inner", "deep", "beside", "last"}));
    controller->expanding().collapseFolder();
    EXPECT_EQ(rowNames(), (Names{"outer", "last"}));
    EXPECT_FALSE(inner->showHier());
}

TEST_F(ExpandingTest, SelectionSurvivesExpandingWithChildren) {
    controller->outline().expandItem(*outer);
    select({beside, last});
    controller->outline().expandItemWithChildren(*outer);
    EXPECT_EQ(outline().selected, (std::set<Bookmark*>{beside, last}));
    EXPECT_EQ(outline().selectedRows(), (RowSet{{3, 2}}));
}

TEST_F(ExpandingTest, SelectionSurvivesExpandAllAndHiddenRowsLoseIt) {
    select({outer, last});
    controller->expanding().expandAll();
    EXPECT_EQ(outline().selected, (std::set<Bookmark*>{outer, last}));
    EXPECT_EQ(outline().scrolledTo, 4u);
    select({deep, last});
    controller->expanding().collapseAll();
    EXPECT_EQ(outline().selected, (std::set<Bookmark*>{last}));
}

TEST_F(ExpandingTest, ManySelectedFoldersAreLaidOutInOneGo) {
    for (int i = 0; i < 200; ++i)
        add(makeLink("x"), &add(makeFolder("many", false)));
    controller->setMaster(document.getMaster());
    outline().selectAll();
    const int reloads = outline().reloads;
    controller->expanding().expandFolder();
    EXPECT_EQ(outline().rows.size(), 404u);
    EXPECT_EQ(outline().reloads, reloads + 1);
    EXPECT_EQ(document.changeCount(), 201);
    EXPECT_EQ(outline().selected.size(), 202u) << "the rows that were selected before";
}

TEST_F(ExpandingTest, CommandsAreReachedByName) {
    EXPECT_FALSE(controller->actions().contains("newDocument:"));
    controller->actions().perform(MenuItem{.action = "expandAll:"});
    EXPECT_EQ(outline().rows.size(), 5u);
    controller->actions().perform(MenuItem{.action = "selectAll:"});
    EXPECT_EQ(outline().selected.size(), 5u);
    controller->actions().perform(MenuItem{.action = "collapseAll:"});
    EXPECT_EQ(outline().rows.size(), 2u);
    EXPECT_TRUE(controller->actions().validateMenuItem(MenuItem{.action = "expandFolder:"}));
    EXPECT_FALSE(controller->actions().validateMenuItem(MenuItem{.action = "unheardOf:"}));
}

} // namespace
} // namespace tabulon
