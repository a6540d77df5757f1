// The line below the outline: the messages of commands, how long they are shown, and restoring deleted items.
#include "tests/window/WindowFixture.h"
#include "window/ShownAddress.h"

namespace tabulon {
namespace {

class StatusLineTest : public WindowTest {
protected:
    void SetUp() override {
        first_ = &add(makeLink("first", "https://first.example/"));
        folder_ = &add(makeFolder("folder"));
        inside_ = &add(makeLink("inside", "https://inside.example/"), folder_);
        add(makeSeparator(), folder_);
        last_ = &add(makeLink("last", "https://last.example/"));
        open();
    }
    void remove(std::initializer_list<Bookmark*> items) {
        select(items);
        controller->editing().deleteSelection();
    }
    void pressPutBack() {
        ASSERT_EQ(window->urlFieldAction, "Put Back");
        controller->statusLine().performAction();
    }

    const std::vector<std::string> kAll = {"first", "folder", "inside", "—", "last"};
    Bookmark* first_ = nullptr;
    Bookmark* folder_ = nullptr;
    Bookmark* inside_ = nullptr;
    Bookmark* last_ = nullptr;
};

TEST_F(StatusLineTest, aDeletionNamesWhatWent) {
    remove({first_});
    EXPECT_EQ(window->urlField, "1 bookmark deleted");
    remove({folder_, last_});
    EXPECT_EQ(window->urlField, "1 folder, 2 bookmarks and 1 separator deleted");
}

TEST_F(StatusLineTest, largeNumbersHaveSeparators) {
    const Ref<Bookmark> large = makeFolder("large", false);
    for (int i = 0; i < 1500; ++i)
        large->addChild(makeLink("link"));
    add(large);
    open();
    remove({large.get()});
    EXPECT_EQ(window->urlField, "1 folder and 1,500 bookmarks deleted");
}

TEST_F(StatusLineTest, whatWasDeletedIsPutBackInItsPlacesAsOneChange) {
    for (const auto& items : std::vector<std::vector<Bookmark*>>{
             {first_}, {inside_}, {folder_}, {first_, folder_, inside_}, {first_, folder_, inside_, last_}}) {
        select(items);
        controller->editing().deleteSelection();
        document.updateChangeCount(ChangeKind::Cleared);
        pressPutBack();
        EXPECT_EQ(rowNames(), kAll);
        EXPECT_EQ(outline().selected, std::set<Bookmark*>(items.begin(), items.end()));
        EXPECT_EQ(document.changeCount(), 1);
        EXPECT_EQ(window->urlFieldAction, "");
        EXPECT_EQ(inside_->getParent(), folder_);
        EXPECT_EQ(inside_->getDocument(), &document);
    }
}

TEST_F(StatusLineTest, manyArePutBackToo) {
    std::vector<std::string> names = kAll;
    for (int i = 0; i < 200; ++i)
        names.push_back(add(makeLink(("more " + std::to_string(i)).c_str())).itemName().string());
    open();
    outline().selectAll();
    controller->editing().deleteSelection();
    EXPECT_TRUE(window->empty);
    EXPECT_EQ(window->urlField, "1 folder, 203 bookmarks and 1 separator deleted");
    pressPutBack();
    EXPECT_EQ(rowNames(), names);
    EXPECT_FALSE(window->empty);
}

TEST_F(StatusLineTest, deletedDuplicatesArePutBack) {
    add(makeLink("again", "HTTPS://inside.example/"));
    add(makeLink("and again", "https://first.example/"), folder_);
    open();
    controller->marks().deleteDuplicatesExecute();
    EXPECT_EQ(rowNames(), kAll);
    EXPECT_EQ(window->urlField, "2 bookmarks deleted");
    pressPutBack();
    EXPECT_EQ(rowNames(),
              (std::vector<std::string>{"first", "folder", "inside", "—", "and again", "last", "again"}));
}

TEST_F(StatusLineTest, aFolderThatMovingDownHasRemovedIsPutBack) {
    const Ref<Bookmark> end = makeFolder("end");
    end->addChild(makeLink("below"));
    add(end);
    open();
    select({end.get()});
    controller->editing().moveDown();
    EXPECT_EQ(window->urlField, "1 folder and 1 bookmark deleted");
    pressPutBack();
    EXPECT_EQ(rowNames().size(), kAll.size() + 2);
}

TEST_F(StatusLineTest, theNextChangeOfTheTreeTakesTheButtonAway) {
    remove({first_});
    controller->expanding().expandAll();
    controller->expanding().collapseAll();
    controller->expanding().expandAll();
    timers.advance(0);
    EXPECT_EQ(window->urlFieldAction, "Put Back") << "expanding is no change of the tree";
    select({last_});
    controller->editing().labelBookmark(2);
    EXPECT_EQ(window->urlFieldAction, "");
    timers.advance(0);
    EXPECT_EQ(window->urlField, "https://last.example/") << "what is selected when the line changes";
    controller->statusLine().performAction();
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"folder", "inside", "—", "last"}));
}

TEST_F(StatusLineTest, addressesReplaceItUntilThePointerLeaves) {
    remove({first_});
    controller->outline().mouseMoved(1);
    EXPECT_EQ(window->urlField, "https://inside.example/");
    EXPECT_EQ(window->urlFieldAction, "Put Back");
    controller->outline().mouseExited();
    EXPECT_EQ(window->urlField, "1 bookmark deleted");
    pressPutBack();
    select({});
    controller->outline().mouseExited();
    EXPECT_EQ(window->urlField, "3 bookmarks in 1 folder");
}

TEST_F(StatusLineTest, withoutItsRowAnAddressGivesWayToTheCounts) {
    controller->outline().mouseMoved(2);
    EXPECT_EQ(window->urlField, "https://inside.example/");
    controller->outline().collapseItem(*folder_);
    timers.advance(0);
    EXPECT_EQ(window->urlField, "3 bookmarks in 1 folder");
    controller->outline().mouseMoved(0);
    EXPECT_EQ(window->urlField, "https://first.example/");
    controller->expanding().expandAll();
    timers.advance(0);
    EXPECT_EQ(window->urlField, "https://first.example/") << "its row is still there";
}

TEST_F(StatusLineTest, findingDuplicatesShowsTheirNumber) {
    controller->marks().findDuplicates();
    EXPECT_EQ(window->urlField, "0 duplicates marked");
    last_->setItemURL("https://first.example/");
    controller->marks().findDuplicates();
    EXPECT_EQ(window->urlField, "1 duplicate marked");
    EXPECT_EQ(window->urlFieldAction, "");
}

TEST_F(StatusLineTest, theRowThatGoesGivesWayToTheCountsAndNotToAnotherAddress) {
    select({last_});
    controller->outline().mouseMoved(controller->outline().rowForItem(*inside_));
    ASSERT_EQ(window->urlField, inside_->itemURL().string());
    controller->outline().removeItem(*inside_);
    controller->outline().makeDirty();
    timers.advance(0);
    EXPECT_EQ(window->urlField, "2 bookmarks in 1 folder");
}

TEST_F(StatusLineTest, findingDuplicatesKeepsTheButtonThatStillWorks) {
    remove({first_});
    controller->marks().findDuplicates();
    EXPECT_EQ(window->urlField, "0 duplicates marked");
    pressPutBack();
    EXPECT_EQ(rowNames(), kAll);
    controller->marks().findDuplicates();
    EXPECT_EQ(window->urlFieldAction, "") << "it has been used";
}

TEST_F(StatusLineTest, aTextAboutAnUnsavedDocumentEndsWithTheSave) {
    document.updateChangeCount(ChangeKind::Done);
    controller->statusLine().showStatusUntilSaved("not saved");
    EXPECT_EQ(window->urlField, "not saved");
    document.updateChangeCount(ChangeKind::Cleared);
    timers.advance(0);
    EXPECT_EQ(window->urlField, "3 bookmarks in 1 folder");
    document.updateChangeCount(ChangeKind::Done);
    controller->statusLine().showStatus("of another kind");
    document.updateChangeCount(ChangeKind::Cleared);
    timers.advance(0);
    EXPECT_EQ(window->urlField, "of another kind");
}

TEST_F(StatusLineTest, controlsForTheDirectionOfWritingAreShownCoded) {
    const std::string address = "https://a.example/\u202Egnp.exe\u2066\u061C\u200F\u2014\u200D";
    const std::string shown = "https://a.example/%E2%80%AEgnp.exe%E2%81%A6%D8%9C%E2%80%8F\u2014\u200D";
    first_->setItemURL(address);
    select({first_});
    controller->outline().selectionDidChange(SelectedBy::User);
    EXPECT_EQ(window->urlField, shown);
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::URL, 0, false).text.string.view(), shown);
    EXPECT_EQ(first_->itemURL().view(), address);
    EXPECT_TRUE(shownAddress(Text()).isNull());
    for (const char* plain : {"", "https://a.example/ß", "\xE2", "\xE2\x80", "\xD8"})
        EXPECT_EQ(shownAddress(Text(plain)).view(), plain);
}

} // namespace
} // namespace tabulon
