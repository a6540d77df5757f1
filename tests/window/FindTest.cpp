// The find bar and how it shows a match: rows, expanded folders, beeps, recent searches.
#include "base/Settings.h"
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

class FindTest : public WindowTest {
protected:
    using Names = std::vector<std::string>;
    FindBarController& bar() { return controller->window().findBar(); }
};

TEST_F(FindTest, theBarComesUpWithItsTextSelectedAndGoes) {
    open();
    const auto perform = [this](const char* action) {
        const MenuItem item{.action = action};
        ASSERT_TRUE(controller->actions().validateMenuItem(item)) << action;
        controller->actions().perform(item);
    };
    perform("performFindPanelAction:");
    EXPECT_TRUE(window->bar.shown);
    EXPECT_EQ(window->bar.selections, 1);
    perform("showFindView:");
    EXPECT_EQ(window->bar.selections, 2);
    perform("hideFindView:");
    EXPECT_FALSE(window->bar.shown);
    EXPECT_EQ(beeper.beeps, 0);
    perform("hideFindView:");
    EXPECT_EQ(beeper.beeps, 1);
    const MenuItem findNext{.action = "findNext:"};
    EXPECT_FALSE(controller->actions().validateMenuItem(findNext)) << "nothing was searched for";
    controller->finding().findNext();
    EXPECT_EQ(beeper.beeps, 2);
    controller->finding().setSearchString("a");
    EXPECT_TRUE(controller->actions().validateMenuItem(findNext));
}

TEST_F(FindTest, aSearchEndsWithTheBar) {
    for (int i = 0; i < 20'000; ++i)
        add(makeLink("link", "none"));
    add(makeLink("hit", "none"));
    open();
    bar().showFindView();
    bar().doSearch("hit");
    EXPECT_EQ(window->bar.label, "") << "the search still goes on";
    bar().hideFindView();
    timers.advance(1);
    EXPECT_EQ(window->bar.label, "");
    EXPECT_TRUE(outline().selected.empty());
}

TEST_F(FindTest, aSearchThatGoesOnWaitsForTheCellBeingEdited) {
    Bookmark& edited = add(makeLink("link", "none"));
    for (int i = 0; i < 20'000; ++i)
        add(makeLink("link", "none"));
    Bookmark& hit = add(makeLink("other", "none"));
    hit.setItemNote("a hit");
    open();
    bar().doSearch("hit");
    select({&edited});
    outline().editCell(Column::Name, 0);
    outline().typed = "typed";
    timers.advance(1);
    EXPECT_TRUE(outline().edited) << "the match was selected and ended the editing";
    EXPECT_FALSE(window->info) << "the panel takes the keyboard";
    EXPECT_EQ(window->bar.label, "");
    outline().endEditing();
    EXPECT_EQ(edited.itemName().view(), "typed");
    timers.advance(1);
    EXPECT_EQ(window->bar.label, "1 match");
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&hit});
    EXPECT_TRUE(window->info);
}

TEST_F(FindTest, onlyRowsCanBeSelected) {
    const MenuItem selectAll{.action = "selectAll:"};
    open();
    EXPECT_FALSE(controller->actions().validateMenuItem(selectAll));
    add(makeLink("a"));
    open();
    EXPECT_TRUE(controller->actions().validateMenuItem(selectAll));
}

TEST_F(FindTest, aSearchCountsAndSelectsTheFirstMatch) {
    add(makeLink("a", "none"));
    Bookmark& b = add(makeLink("b hit", "none"));
    add(makeLink("c", "hit"));
    open();
    bar().doSearch("HIT");
    EXPECT_EQ(window->bar.label, "2 matches");
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&b});
    EXPECT_EQ(outline().scrolledTo, 1u);
    EXPECT_EQ(controller->finding().foundBookmark(), &b);
    EXPECT_EQ(controller->finding().searchString(), "HIT");
    bar().controlTextDidBeginEditing();
    EXPECT_EQ(window->bar.label, "");
    bar().doSearch("nothing");
    EXPECT_EQ(window->bar.label, "0 matches");
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&b});
    bar().doSearch("");
    EXPECT_EQ(window->bar.label, "");
    EXPECT_EQ(controller->finding().searchString(), "nothing");
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(FindTest, findNextBeepsWithoutASearchStringAndBehindTheLastMatch) {
    Bookmark& a = add(makeLink("a hit", "x"));
    Bookmark& b = add(makeLink("b hit", "x"));
    open();
    controller->finding().findNext();
    EXPECT_EQ(beeper.beeps, 1);
    bar().doSearch("hit");
    controller->finding().findNext();
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&b});
    controller->finding().findNext();
    EXPECT_EQ(beeper.beeps, 2);
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&b});
    controller->finding().findNext();
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&a});
}

TEST_F(FindTest, aMatchInCollapsedFoldersIsRevealed) {
    Bookmark& outer = add(makeFolder("outer", false));
    Bookmark& inner = add(makeFolder("inner", false), &outer);
    add(makeFolder("beside", false), &inner);
    Bookmark& link = add(makeLink("hit", "x"), &inner);
    open();
    controller->finding().findText("hit");
    EXPECT_EQ(rowNames(), (Names{"outer", "inner", "beside", "hit"}));
    EXPECT_TRUE(outer.showHier() && inner.showHier());
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&link});
    EXPECT_EQ(outline().scrolledTo, 3u);
    EXPECT_EQ(document.changeCount(), 2) << "each folder that was expanded";
}

TEST_F(FindTest, withoutRememberDesktopRevealingLeavesTheDocumentClean) {
    setValue(base.defaults, settings::kRememberDesktop, false);
    Bookmark& outer = add(makeFolder("outer", false));
    add(makeLink("hit", "x"), &outer);
    open();
    controller->finding().findText("hit");
    EXPECT_EQ(rowNames(), (Names{"outer", "hit"}));
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(FindTest, theRootHasNoRowAndLeavesTheSelection) {
    document.getMaster().setItemName("Master");
    Bookmark& a = add(makeLink("a", "x"));
    Bookmark& b = add(makeLink("master", "x"));
    open();
    controller->finding().findText("master");
    controller->finding().findNext();
    EXPECT_EQ(beeper.beeps, 1);
    select({&a});
    controller->finding().findNext();
    EXPECT_EQ(controller->finding().foundBookmark(), &document.getMaster());
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&a});
    controller->finding().findNext();
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&b});
}

TEST_F(FindTest, afterTheFoundItemWasDeletedItBeginsAgain) {
    Bookmark& a = add(makeLink("a hit", "x"));
    Bookmark& b = add(makeLink("b hit", "x"));
    open();
    controller->finding().findText("hit");
    controller->finding().findNext();
    select({&b});
    controller->editing().deleteSelection();
    controller->finding().findNext();
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&a});
    EXPECT_EQ(beeper.beeps, 0);
}

TEST_F(FindTest, theColumnOfTagsTakesThemForNames) {
    add(makeLink("a", "x")).setItemTags("hit");
    open();
    controller->table().addTagsColumn();
    EXPECT_TRUE(shared.findPhases.tagsWithName);
    controller->table().removeTagsColumn();
    EXPECT_FALSE(shared.findPhases.tagsWithName);
}

class LargeFindTest : public FindTest {
protected:
    static constexpr std::size_t kLinks = 50'000;

    LargeFindTest() {
        for (std::size_t i = 0; i < kLinks; ++i)
            add(makeLink(("link " + std::to_string(i)).c_str(), "x"));
        last = &add(makeLink("the last hit", "x"));
        open();
    }
    Bookmark* last = nullptr;
};

TEST_F(LargeFindTest, aSearchGoesOnWhileTheUserMayType) {
    bar().doSearch("hit");
    EXPECT_EQ(window->bar.label, "");
    EXPECT_TRUE(outline().selected.empty());
    timers.advance(0);
    timers.advance(0);
    EXPECT_EQ(window->bar.label, "1 match");
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{last});
    EXPECT_EQ(timers.running(), 0u);
}

TEST_F(LargeFindTest, anotherSearchOrNoneEndsTheOneThatGoesOn) {
    bar().doSearch("hit");
    bar().doSearch("link");
    timers.advance(1);
    EXPECT_EQ(window->bar.label, "50000 matches");
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{document.getMaster().getChild()});
    bar().doSearch("hit");
    bar().doSearch("");
    EXPECT_EQ(timers.running(), 0u);
    timers.advance(1);
    EXPECT_EQ(window->bar.label, "");
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{document.getMaster().getChild()});
}

TEST_F(LargeFindTest, findNextWaitsForTheFirstMatch) {
    bar().doSearch("hit");
    controller->finding().findNext();
    EXPECT_EQ(window->bar.label, "1 match");
    EXPECT_EQ(beeper.beeps, 1) << "behind the only match";
    EXPECT_EQ(timers.running(), 0u);
}

TEST_F(LargeFindTest, itemsMayGoWhileItGoesOn) {
    bar().doSearch("hit");
    Bookmark* first = document.getMaster().getChild();
    outline().selectAll();
    controller->editing().deleteSelection();
    ASSERT_FALSE(document.getMaster().hasChildren());
    controller->editing().addNewData(makeLink("another hit", "x"));
    timers.advance(1);
    EXPECT_EQ(window->bar.label, "1 match");
    EXPECT_NE(controller->finding().foundBookmark(), first);
    EXPECT_EQ(controller->finding().foundBookmark(), document.getMaster().getChild());
}

TEST_F(FindTest, recentSearchesAreKeptTheNewestFirst) {
    open();
    EXPECT_TRUE(bar().recentSearches().empty());
    for (int i = 0; i < 12; ++i)
        bar().noteRecentSearch("text " + std::to_string(i));
    bar().noteRecentSearch("text 5");
    bar().noteRecentSearch("");
    const Names recents = bar().recentSearches();
    ASSERT_EQ(recents.size(), FindBarController::kMostRecents);
    EXPECT_EQ(recents[0], "text 5");
    EXPECT_EQ(recents[1], "text 11");
    EXPECT_EQ(std::ranges::count(recents, "text 5"), 1);
    open();
    EXPECT_EQ(bar().recentSearches(), recents) << "they outlive the window";
    bar().clearRecentSearches();
    EXPECT_TRUE(bar().recentSearches().empty());
}

} // namespace
} // namespace tabulon
