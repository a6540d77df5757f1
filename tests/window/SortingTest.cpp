// Sorting: the commands on folders, clicks on column titles and the question about them.
#include "base/Settings.h"
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

class SortingTest : public WindowTest {
protected:
    using Names = std::vector<std::string>;
    SortingTest() {
        alerts.whileShown = [this] { timers.advance(10); }; // before the user answers
    }
    void perform(const char* action, int tag = 0) {
        const MenuItem item{.action = action, .tag = tag};
        ASSERT_TRUE(controller->actions().validateMenuItem(item));
        controller->actions().perform(item);
    }
    bool enabled(const char* action) {
        return controller->actions().validateMenuItem(MenuItem{.action = action});
    }
    /// Builds and opens a tree with b, F(z, y) and A at the top level.
    void plant() {
        add(makeLink("b", "1"));
        folder = &add(makeFolder("F"));
        z = &add(makeLink("z", "3"), folder);
        y = &add(makeLink("y", "4"), folder);
        add(makeLink("A", "2"));
        open();
    }
    Bookmark* folder = nullptr;
    Bookmark* z = nullptr;
    Bookmark* y = nullptr;
};

TEST_F(SortingTest, aFolderIsSortedAndItsRowsFollow) {
    plant();
    select({folder});
    perform("sortByName:");
    EXPECT_EQ(rowNames(), (Names{"b", "F", "y", "z", "A"}));
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{folder});
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(SortingTest, whatIsSelectedInItStaysSelected) {
    plant();
    select({folder, z});
    controller->sorting().sortByIndexAscending(0, true);
    EXPECT_EQ(rowNames(), (Names{"b", "F", "y", "z", "A"}));
    EXPECT_EQ(outline().selected, (std::set<Bookmark*>{folder, z}));
}

TEST_F(SortingTest, withOptionHeldOrFromTheMenuForItTheOrderIsDescending) {
    plant();
    select({folder});
    perform("sortByURL:");
    EXPECT_EQ(rowNames(), (Names{"b", "F", "z", "y", "A"}));
    keyboard.option = true;
    perform("sortByURL:");
    EXPECT_EQ(rowNames(), (Names{"b", "F", "y", "z", "A"}));
    keyboard.option = false;
    perform("sortByName:", SortCommands::kSortDescendingTag);
    EXPECT_EQ(rowNames(), (Names{"b", "F", "z", "y", "A"}));
}

TEST_F(SortingTest, everyCommandHasItsKey) {
    plant();
    select({folder});
    y->setItemTags("a");
    z->setItemTags("b");
    y->setItemDateAdded(Date::fromReferenceSeconds(2));
    z->setItemDateAdded(Date::fromReferenceSeconds(1));
    y->setItemDateModified(Date::fromReferenceSeconds(1));
    z->setItemDateModified(Date::fromReferenceSeconds(2));
    y->setItemLastOpened(Date::fromReferenceSeconds(2));
    z->setItemLastOpened(Date::fromReferenceSeconds(1));
    const auto firstAfter = [this](const char* action) {
        perform(action);
        return folder->getChild()->itemName().string();
    };
    EXPECT_EQ(firstAfter("sortByTags:"), "y");
    EXPECT_EQ(firstAfter("sortByDateAdded:"), "z");
    EXPECT_EQ(firstAfter("sortByDateModified:"), "y");
    EXPECT_EQ(firstAfter("sortByDateLastOpened:"), "z");
    EXPECT_EQ(firstAfter("sortByName:"), "y");
    EXPECT_EQ(firstAfter("sortByURL:"), "z");
}

TEST_F(SortingTest, theCommandsWantExactlyOneSelectedFolder) {
    plant();
    for (const char* action : {"sortByName:", "sortByURL:", "sortByTags:", "sortByDateAdded:",
                               "sortByDateModified:", "sortByDateLastOpened:"}) {
        select({});
        EXPECT_FALSE(enabled(action)) << action;
        select({z});
        EXPECT_FALSE(enabled(action)) << action;
        select({folder, z});
        EXPECT_FALSE(enabled(action)) << action;
        select({folder});
        EXPECT_TRUE(enabled(action)) << action;
    }
}

TEST_F(SortingTest, everySelectedFolderIsSortedAndCounts) {
    Bookmark& one = add(makeFolder("one", false));
    add(makeLink("b"), &one);
    add(makeLink("a"), &one);
    Bookmark& empty = add(makeFolder("empty"));
    Bookmark& link = add(makeLink("link"));
    open();
    select({&one, &empty, &link});
    controller->sorting().sortByIndexAscending(0, true);
    EXPECT_EQ(one.getChild()->itemName().view(), "a");
    EXPECT_EQ(document.changeCount(), 2) << "an empty folder counts too, a link does not";
}

TEST_F(SortingTest, aClickedRowOutsideTheSelectionIsSortedAlone) {
    plant();
    Bookmark& other = add(makeFolder("other", false));
    add(makeLink("b"), &other);
    add(makeLink("a"), &other);
    open();
    select({folder});
    controller->outline().setClickedRow(5);
    controller->sorting().sortByIndexAscending(0, true);
    EXPECT_EQ(other.getChild()->itemName().view(), "a");
    EXPECT_EQ(folder->getChild(), z);
    controller->outline().setClickedRow(0);
    controller->sorting().sortByIndexAscending(0, true);
    EXPECT_EQ(document.changeCount(), 1) << "the clicked row is a link";
}

TEST_F(SortingTest, aClickOnATitleSortsNothingAndAsksInAMoment) {
    plant();
    controller->sorting().headerClicked(Column::Name);
    EXPECT_EQ(document.getMaster().getChild()->itemName().view(), "b");
    EXPECT_TRUE(alerts.shown.empty());
    timers.advance(0.79);
    EXPECT_TRUE(alerts.shown.empty());
    alerts.answer("No");
    select({z});
    controller->fields().editNameBookmark();
    timers.advance(0.02);
    ASSERT_EQ(alerts.shown.size(), 1u);
    const Alert& alert = alerts.shown[0];
    EXPECT_EQ(alert.style, AlertStyle::Warning);
    EXPECT_EQ(alert.message, base.texts.text("SortByName"));
    EXPECT_EQ(alert.informative, base.texts.text("SortByNameInfo"));
    ASSERT_EQ(alert.buttons.size(), 2u);
    EXPECT_EQ(alert.buttons[0].title, "No");
    EXPECT_EQ(alert.buttons[1].title, "Yes");
    EXPECT_EQ(alert.document, &document);
    EXPECT_EQ(alerts.boxTitles, std::vector<std::string>{base.texts.text("DontAskAgain")});
    EXPECT_TRUE(outline().selected.empty());
    EXPECT_EQ(outline().editingsEnded, 1);
    EXPECT_FALSE(valueOf(base.defaults, settings::kColumnSort) ||
                 valueOf(base.defaults, settings::kSuppressColumnSortSheet));
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(SortingTest, yesLetsTheNextClickSortAndEachFurtherOneTurnsTheOrder) {
    plant();
    controller->sorting().headerClicked(Column::Name);
    alerts.answer("Yes");
    timers.advance(1);
    EXPECT_TRUE(valueOf(base.defaults, settings::kColumnSort));
    EXPECT_EQ(rowNames(), (Names{"b", "F", "z", "y", "A"})) << "the first click does not sort";
    controller->sorting().headerClicked(Column::Name);
    EXPECT_EQ(rowNames(), (Names{"F", "y", "z", "A", "b"}));
    EXPECT_EQ(outline().sortedBy, Column::Name);
    EXPECT_EQ(outline().sortDirection, SortDirection::Ascending);
    controller->sorting().headerClicked(Column::Name);
    EXPECT_EQ(rowNames(), (Names{"F", "z", "y", "b", "A"}));
    EXPECT_EQ(outline().sortDirection, SortDirection::Descending);
    controller->sorting().headerClicked(Column::URL);
    EXPECT_EQ(rowNames(), (Names{"F", "z", "y", "b", "A"}));
    EXPECT_EQ(outline().sortedBy, Column::URL);
    EXPECT_EQ(outline().sortDirection, SortDirection::Ascending);
    EXPECT_EQ(document.changeCount(), 3);
    timers.advance(10);
    EXPECT_EQ(alerts.shown.size(), 1u);
}

TEST_F(SortingTest, theBoxEndsTheQuestion) {
    plant();
    alerts.suppresses = true;
    alerts.answer("No");
    controller->sorting().headerClicked(Column::URL);
    timers.advance(1);
    EXPECT_TRUE(valueOf(base.defaults, settings::kSuppressColumnSortSheet));
    controller->sorting().headerClicked(Column::Name);
    timers.advance(10);
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(SortingTest, theBoxCountsWithYesAsWell) {
    plant();
    alerts.suppresses = true;
    alerts.answer("Yes");
    controller->sorting().headerClicked(Column::URL);
    timers.advance(1);
    EXPECT_TRUE(valueOf(base.defaults, settings::kSuppressColumnSortSheet));
    EXPECT_TRUE(valueOf(base.defaults, settings::kColumnSort));
    controller->sorting().headerClicked(Column::URL);
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(SortingTest, whereColumnsSortAWindowComesUpSo) {
    setValue(base.defaults, settings::kColumnSort, true);
    plant();
    controller->sorting().headerClicked(Column::URL);
    EXPECT_EQ(rowNames(), (Names{"F", "z", "y", "b", "A"}));
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_EQ(timers.running(), 0u);
}

TEST_F(SortingTest, theSelectionStaysWithItsItems) {
    setValue(base.defaults, settings::kColumnSort, true);
    plant();
    select({z});
    controller->sorting().headerClicked(Column::Name);
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{z});
}

TEST_F(SortingTest, switchingItOnAgainTurnsTheFirstDirection) {
    plant();
    controller->sorting().addSortDescriptors();
    controller->sorting().addSortDescriptors();
    controller->sorting().headerClicked(Column::Name);
    EXPECT_EQ(outline().sortDirection, SortDirection::Descending);
    controller->sorting().defaultNoSorting();
    EXPECT_EQ(outline().sortedBy, std::nullopt);
    setValue(base.defaults, settings::kSuppressColumnSortSheet, true);
    const long before = document.changeCount();
    controller->sorting().headerClicked(Column::Name);
    EXPECT_EQ(document.changeCount(), before);
}

TEST_F(SortingTest, aColumnThatIsNotShownDoesNotSort) {
    plant();
    controller->sorting().addSortDescriptors();
    controller->sorting().headerClicked(Column::Tags);
    EXPECT_EQ(document.changeCount(), 0);
    controller->table().addTagsColumn();
    controller->sorting().addSortDescriptors();
    controller->sorting().headerClicked(Column::Tags);
    EXPECT_EQ(document.changeCount(), 1);
}

} // namespace
} // namespace tabulon
