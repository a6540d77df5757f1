// The info panel: its working copy, the actions that save and those that do not, moving to other items,
// browsers, and the matches that finding shows in it.
#include "tests/window/WindowFixture.h"
#include "window/GetInfoController.h"

namespace tabulon {
namespace {

class GetInfoTest : public WindowTest {
protected:
    /// Builds the tree F(a b) c and selects c.
    void plant() {
        folder = &add(makeFolder("F"));
        a = &add(makeLink("a", "https://a.example/"), folder);
        b = &add(makeLink("b", "https://b.example/"), folder);
        c = &add(makeLink("c", "https://c.example/"));
        open();
        select({c});
    }
    GetInfoController& getInfo() {
        const MenuItem item{.action = "getInfo:"};
        EXPECT_TRUE(controller->actions().validateMenuItem(item));
        controller->actions().perform(item);
        return *window->info;
    }
    MemoryInfoPanel& panel() { return window->infoPanel; }

    Bookmark* folder = nullptr;
    Bookmark* a = nullptr;
    Bookmark* b = nullptr;
    Bookmark* c = nullptr;
};

TEST_F(GetInfoTest, itWantsASelection) {
    plant();
    select({});
    EXPECT_FALSE(controller->actions().validateMenuItem(MenuItem{.action = "getInfo:"}));
    controller->window().getInfo();
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_FALSE(window->info);
}

TEST_F(GetInfoTest, itComesUpWithTheItemsFields) {
    plant();
    state.setStringForKey("Get Info Window", "1 2 300 400");
    GetInfoController& info = getInfo();
    EXPECT_EQ(info.original(), c);
    EXPECT_EQ(info.duplicate().itemName(), Text("c"));
    EXPECT_EQ(panel().title, "c");
    EXPECT_EQ(panel().place, "1 2 300 400");
    EXPECT_EQ(panel().nameSelections, 1);
    EXPECT_TRUE(info.isURLEditable() && info.isURLEnabled());
}

TEST_F(GetInfoTest, closingWithoutChangesLeavesTheDocumentClean) {
    plant();
    const Date before = c->itemDateModified();
    GetInfoController& info = getInfo();
    info.setName("x");
    info.setName("c");
    info.setNote("typed");
    info.setNote("");
    panel().place = "5 6 7 8";
    info.done();
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_EQ(c->itemDateModified(), before);
    EXPECT_TRUE(c->itemNote().isNull());
    EXPECT_EQ(panel().dismissals, 1);
    EXPECT_EQ(state.stringForKey("Get Info Window"), "5 6 7 8");
    EXPECT_FALSE(info.isShown());
}

TEST_F(GetInfoTest, aChangeIsSavedOnLeavingWithItsDateAndOneChange) {
    plant();
    GetInfoController& info = getInfo();
    base.clock.advance(10);
    info.setNote("note");
    EXPECT_TRUE(c->itemNote().isNull()) << "nothing is written before";
    info.done();
    EXPECT_EQ(c->itemNote(), Text("note"));
    EXPECT_EQ(c->itemDateModified(), base.now());
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_EQ(outline().reloaded, (std::vector<RowRange>{{3, 1}}));
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{c});
}

TEST_F(GetInfoTest, everyFieldIsTakenOver) {
    plant();
    GetInfoController& info = getInfo();
    info.setName("name");
    info.setURL("https://new.example/");
    info.setTags("tags");
    info.setLabel(3);
    info.setLocked(true);
    info.openWith(6);
    EXPECT_FALSE(info.isURLEditable());
    info.done();
    EXPECT_EQ(c->itemName(), Text("name"));
    EXPECT_EQ(c->itemURL(), Text("https://new.example/"));
    EXPECT_EQ(c->itemTags(), Text("tags"));
    EXPECT_EQ(c->getLabel(), 3);
    EXPECT_TRUE(c->getLocked());
    EXPECT_EQ(c->itemBrowser(), 11);
    EXPECT_EQ(window->urlField, "https://new.example/");
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::URL, 3, false).editable);
}

TEST_F(GetInfoTest, aClearedTextIsEmptyAndAFoldersURLCannotBeEdited) {
    plant();
    c->setItemNote("note");
    GetInfoController& info = getInfo();
    info.setNote("");
    info.done();
    EXPECT_EQ(c->itemNote(), Text(""));
    select({folder});
    EXPECT_FALSE(getInfo().isURLEnabled());
}

TEST_F(GetInfoTest, anItemWithoutANameIsNeverLikeItsCopy) {
    plant();
    c->setItemName(nullptr);
    getInfo().done();
    EXPECT_EQ(panel().title, base.texts.text("MenuGetInfo"));
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_TRUE(c->itemName().isNull());
}

TEST_F(GetInfoTest, stepsGoUpDownAndAside) {
    plant();
    select({a});
    GetInfoController& info = getInfo();
    EXPECT_EQ(panel().buttons, (InfoButtons{.up = true, .right = true}));
    info.next();
    EXPECT_EQ(info.original(), b);
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{b});
    EXPECT_EQ(panel().title, "b");
    EXPECT_EQ(panel().buttons, (InfoButtons{.up = true, .left = true}));
    info.up();
    EXPECT_EQ(info.original(), folder);
    EXPECT_EQ(panel().buttons, (InfoButtons{.down = true, .right = true}));
    info.down();
    EXPECT_EQ(info.original(), a);
    info.next();
    info.previous();
    EXPECT_EQ(info.original(), a);
    EXPECT_EQ(beeper.beeps, 0);
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(GetInfoTest, aStepThatLeadsNowhereBeepsAndSaves) {
    plant();
    GetInfoController& info = getInfo();
    info.setTags("t");
    info.up();
    EXPECT_EQ(beeper.beeps, 1);
    EXPECT_EQ(info.original(), c);
    EXPECT_EQ(c->itemTags(), Text("t"));
    EXPECT_EQ(document.changeCount(), 1);
    info.down();
    info.next();
    EXPECT_EQ(beeper.beeps, 3);
    info.previous();
    info.previous();
    EXPECT_EQ(beeper.beeps, 4);
    EXPECT_EQ(info.original(), folder);
    EXPECT_EQ(document.changeCount(), 1) << "what was saved is no longer a change";
}

TEST_F(GetInfoTest, anEmptyFolderIsSteppedIntoInVain) {
    Bookmark& empty = add(makeFolder("E"));
    open();
    select({&empty});
    GetInfoController& info = getInfo();
    EXPECT_TRUE(panel().buttons.down);
    info.down();
    EXPECT_EQ(beeper.beeps, 1);
    EXPECT_EQ(info.original(), &empty);
}

TEST_F(GetInfoTest, aStepToWhatHasNoRowLeavesTheSelection) {
    plant();
    controller->outline().collapseItem(*folder);
    select({folder});
    GetInfoController& info = getInfo();
    info.down();
    EXPECT_EQ(info.original(), a);
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{folder});
}

TEST_F(GetInfoTest, browsersHaveTheirPlacesInTheMenu) {
    const std::pair<int, std::uint32_t> places[] = {{2, 10}, {3, 15}, {4, 16}, {5, 5},  {6, 11},
                                                    {7, 6},  {8, 17}, {9, 18}, {10, 19}};
    for (const auto& [index, value] : places) {
        EXPECT_EQ(GetInfoController::getBrowserValue(index), value);
        EXPECT_EQ(GetInfoController::getBrowserMenuIndex(value), index);
    }
    for (const int index : {-1, 0, 1, 11, 100})
        EXPECT_EQ(GetInfoController::getBrowserValue(index), 0u);
    for (const std::uint32_t value : {0u, 4u, 7u, 8u, 9u, 12u, 13u, 14u, 20u, 255u})
        EXPECT_EQ(GetInfoController::getBrowserMenuIndex(value), 0);
    plant();
    const std::vector<Application> items = getInfo().browserItems();
    ASSERT_EQ(items.size(), 11u);
    EXPECT_EQ(items[2].name, "Safari");
    EXPECT_EQ(items[10].name, "Edge");
}

TEST_F(GetInfoTest, theFirstBrowserIsTheDesktopsOwn) {
    plant();
    workspace.browser = Application{.name = "Web %@", .icon = "web-browser"};
    EXPECT_EQ(getInfo().browserItems().front().name, "Web %@ (Default)");
    EXPECT_EQ(getInfo().browserItems().front().icon, "web-browser");
    workspace.browser.reset();
    EXPECT_EQ(getInfo().browserItems().front().name, "Default");
    EXPECT_EQ(getInfo().browserItems().front().icon, "");
}

TEST_F(GetInfoTest, aBrowserWithoutAPlaceIsShownAsTheDefaultAndKeptUntilOneIsChosen) {
    plant();
    c->setItemBrowser(8);
    GetInfoController& info = getInfo();
    EXPECT_EQ(info.browserMenuIndex(), 0);
    info.setNote("x");
    info.done();
    EXPECT_EQ(c->itemBrowser(), 8);
    GetInfoController& again = getInfo();
    again.openWith(0);
    again.done();
    EXPECT_EQ(c->itemBrowser(), 0);
}

TEST_F(GetInfoTest, aMatchInTheNoteOpensItWithTheNoteHighlighted) {
    plant();
    a->setItemName("a hit");
    a->setItemNote("a hit in the note");
    c->setItemName("c hit");
    struct : FindObserver {
        void searchDidEnd(std::size_t count) override { matches = count; }
        std::size_t matches = 0;
    } observer;
    controller->finding().addObserver(observer);
    controller->finding().findText("hit");
    EXPECT_EQ(observer.matches, 3u);
    EXPECT_FALSE(window->info) << "the first match is in the name";
    controller->finding().findNext();
    ASSERT_TRUE(window->info);
    EXPECT_EQ(window->info->original(), a);
    EXPECT_EQ(panel().selectedNote, "hit");
    EXPECT_EQ(panel().selectedTags, "");
    window->info->done();
    controller->finding().findNext();
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{c});
    EXPECT_FALSE(window->info->isShown()) << "the outline shows this match";
}

TEST_F(GetInfoTest, whatIsHighlightedHasTheAccentsOfTheNote) {
    plant();
    a->setItemNote("her Résumé");
    controller->finding().findText("resume");
    ASSERT_TRUE(window->info);
    EXPECT_EQ(panel().selectedNote, "Résumé");
}

TEST_F(GetInfoTest, aMatchInTheTagsOpensItWithTheTagsHighlighted) {
    plant();
    controller->outline().collapseItem(*folder);
    b->setItemTags("a hit");
    controller->finding().findText("hit");
    ASSERT_TRUE(window->info);
    EXPECT_EQ(window->info->original(), b);
    EXPECT_EQ(panel().selectedTags, "hit");
}

TEST_F(GetInfoTest, aPanelThatIsUpGoesToTheNextMatchAndSaves) {
    plant();
    a->setItemNote("hit");
    b->setItemNote("hit");
    controller->finding().findText("hit");
    GetInfoController& info = *window->info;
    info.setName("changed");
    controller->finding().findNext();
    EXPECT_EQ(window->info.get(), &info);
    EXPECT_EQ(info.original(), b);
    EXPECT_EQ(a->itemName(), Text("changed"));
}

TEST_F(GetInfoTest, findNextInThePanelShowsWhereItWasFound) {
    plant();
    a->setItemNote("hit");
    a->setItemTags("hit");
    b->setItemName("b hit");
    GetInfoController& without = getInfo();
    EXPECT_FALSE(without.canFindNext()) << "nothing was searched for";
    without.done();
    controller->finding().findText("hit");
    GetInfoController& info = *window->info;
    EXPECT_EQ(info.original(), a);
    EXPECT_TRUE(info.canFindNext());
    info.setName("changed");
    info.findNext();
    EXPECT_EQ(a->itemName(), Text("changed"));
    EXPECT_EQ(info.original(), b) << "also where the outline alone would show the match";
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{b});
    EXPECT_EQ(beeper.beeps, 0);
    info.findNext();
    EXPECT_EQ(beeper.beeps, 1);
    EXPECT_EQ(info.original(), b);
    info.findNext();
    EXPECT_EQ(info.original(), a);
    EXPECT_EQ(panel().selectedTags, "hit");
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{a});
}

TEST_F(GetInfoTest, findNextInThePanelDoesNotGoToTheRoot) {
    plant();
    document.getMaster().setItemName("a hit");
    c->setItemName("hit");
    controller->finding().findText("hit");
    controller->finding().findNext();
    GetInfoController& info = getInfo();
    info.findNext();
    EXPECT_EQ(controller->finding().foundBookmark(), &document.getMaster());
    EXPECT_EQ(info.original(), c);
}

TEST_F(GetInfoTest, aPanelThatOutlivesItsWindowDoesNothing) {
    plant();
    getInfo().setName("lost");
    const auto info = window->info;
    controller.reset();
    info->done();
    EXPECT_EQ(c->itemName(), Text("c"));
    window->info.reset();
    window.reset();
}

TEST_F(GetInfoTest, aPanelGoesWithItsNodeAndWritesNothing) {
    plant();
    select({a});
    GetInfoController& info = getInfo();
    info.setName("lost");
    select({folder});
    controller->editing().deleteSelection();
    EXPECT_EQ(panel().dismissals, 1);
    EXPECT_FALSE(info.isShown());
    EXPECT_EQ(a->itemName(), Text("a"));
    EXPECT_EQ(document.changeCount(), 1);
    info.keepChange();
    info.next();
    EXPECT_EQ(a->itemName(), Text("a"));
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_EQ(info.original(), a) << "it does not go on among nodes that have left";
}

TEST_F(GetInfoTest, aPanelStaysWhenOthersGo) {
    plant();
    select({b});
    GetInfoController& info = getInfo();
    info.setName("kept");
    select({a});
    controller->editing().deleteSelection();
    EXPECT_EQ(panel().dismissals, 0);
    EXPECT_EQ(panel().buttons, (InfoButtons{.up = true}));
    info.keepChange();
    EXPECT_EQ(b->itemName(), Text("kept"));
}

TEST_F(GetInfoTest, aNodeThatOutlivesItsFolderHasNoParent) {
    plant();
    select({a});
    GetInfoController& info = getInfo();
    controller->finding().findText("a.example");
    controller->editing().deleteSelection();
    EXPECT_EQ(a->getParent(), nullptr);
    select({folder});
    controller->editing().deleteSelection(); // the first deletion cannot be restored after this one
    controller->statusLine().showStatus("another");
    EXPECT_EQ(info.original(), a);
    info.up();
    info.next();
    info.previous();
    EXPECT_EQ(beeper.beeps, 3);
    ASSERT_EQ(controller->finding().foundBookmark(), a);
    controller->finding().findNext();
    EXPECT_EQ(controller->finding().foundBookmark(), nullptr);
}

TEST_F(GetInfoTest, aPanelGoesWithTheLinksThatTheirStatusRemovesAndWithTheTree) {
    plant();
    c->setItemURL("https://a.example/");
    GetInfoController& info = getInfo();
    info.setName("lost");
    controller->marks().deleteDuplicatesExecute();
    EXPECT_EQ(panel().dismissals, 1);
    EXPECT_EQ(c->itemName(), Text("c"));
    EXPECT_EQ(c->getParent(), nullptr);
    select({b});
    getInfo().setName("lost");
    const Ref<Bookmark> old(b);
    document.setMaster(makeFolder("another"));
    document.updateUI();
    EXPECT_EQ(panel().dismissals, 2);
    EXPECT_EQ(old->itemName(), Text("b"));
}

TEST_F(GetInfoTest, aPanelStaysWithANodeThatIsMoved) {
    plant();
    GetInfoController& info = getInfo();
    controller->editing().moveUp();
    EXPECT_EQ(panel().dismissals, 0);
    info.setName("kept");
    info.done();
    EXPECT_EQ(c->itemName(), Text("kept"));
}

TEST_F(GetInfoTest, askedForAgainItComesToTheFrontUnlessTheUserSearches) {
    plant();
    getInfo();
    EXPECT_EQ(panel().broughtToFront, 0);
    select({b});
    getInfo();
    EXPECT_EQ(panel().broughtToFront, 1);
    window->bar.keyboard = true;
    getInfo();
    EXPECT_EQ(panel().broughtToFront, 1);
}

TEST_F(GetInfoTest, cancellingGivesTheChangeUp) {
    plant();
    GetInfoController& info = getInfo();
    info.setName("typed");
    panel().place = "5 6 7 8";
    info.cancel();
    EXPECT_EQ(c->itemName(), Text("c"));
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_EQ(panel().dismissals, 1);
    EXPECT_EQ(state.stringForKey("Get Info Window"), "5 6 7 8");
}

TEST_F(GetInfoTest, cancellingChangesNoItemWithoutAName) {
    plant();
    c->setItemName({});
    const Date modified = c->itemDateModified();
    GetInfoController& info = getInfo();
    base.clock.advance(60);
    info.cancel();
    EXPECT_TRUE(c->itemDateModified() == modified);
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_EQ(panel().dismissals, 1);
}

TEST_F(GetInfoTest, whatTheRowsChangeWhileThePanelIsUpStays) {
    plant();
    c->setLabel(1);
    GetInfoController& info = getInfo();
    info.setNote("typed here");
    info.setTags("typed here");
    controller->fields().endNameEdit(3, "renamed");
    controller->fields().endURLEdit(3, "mailto:c@example.org");
    controller->fields().endTagsEdit(3, "typed there");
    controller->editing().labelBookmark(5);
    EXPECT_EQ(info.duplicate().itemName(), Text("renamed"));
    EXPECT_EQ(panel().title, "renamed");
    EXPECT_EQ(panel().reloads, 4) << "when it came up, and for name, address and label";
    const std::uint8_t type = c->getType();
    ASSERT_NE(type, b->getType());
    info.done();
    EXPECT_EQ(c->itemName(), Text("renamed"));
    EXPECT_EQ(c->itemURL(), Text("mailto:c@example.org"));
    EXPECT_EQ(c->getType(), type);
    EXPECT_EQ(c->getLabel(), 5);
    EXPECT_EQ(c->itemNote(), Text("typed here"));
    EXPECT_EQ(c->itemTags(), Text("typed here")) << "the last one to say so";
    EXPECT_EQ(document.changeCount(), 5);
}

TEST_F(GetInfoTest, marksThatAreSetWhileThePanelIsUpAreNoChangeOfIt) {
    plant();
    c->setItemURL("https://a.example/");
    GetInfoController& info = getInfo();
    controller->marks().findDuplicates();
    ASSERT_EQ(c->getStatus(), kDuplicateStatus);
    const Date before = c->itemDateModified();
    base.clock.advance(10);
    info.done();
    EXPECT_EQ(c->getStatus(), kDuplicateStatus);
    EXPECT_EQ(c->itemDateModified(), before);
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(GetInfoTest, aChangeIsKeptWithoutLeaving) {
    plant();
    GetInfoController& info = getInfo();
    info.setName("typed");
    info.keepChange();
    info.keepChange();
    EXPECT_EQ(c->itemName(), Text("typed"));
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_TRUE(info.isShown());
    info.cancel();
    EXPECT_EQ(document.changeCount(), 1);
}

} // namespace
} // namespace tabulon
