// Editing in place: what is taken over, dates, and editing that begins by command or by itself.
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

class FieldsTest : public WindowTest {
protected:
    void SetUp() override {
        link_ = &add(makeLink("link", "https://a.example/"));
        folder_ = &add(makeFolder("folder"));
        for (Bookmark* item : {link_, folder_})
            item->setItemDateModified(kBefore);
        open();
    }
    void expectUnchanged(const Bookmark& item) {
        EXPECT_EQ(item.itemDateModified(), kBefore);
        EXPECT_EQ(document.changeCount(), 0);
    }
    void expectChanged(const Bookmark& item) {
        EXPECT_EQ(item.itemDateModified(), base.now());
        EXPECT_EQ(document.changeCount(), 1);
    }

    const Date kBefore = Date::fromReferenceSeconds(1000);
    Bookmark* link_ = nullptr;
    Bookmark* folder_ = nullptr;
};

TEST_F(FieldsTest, aNewNameIsTakenOverWithTheDate) {
    controller->endNameEdit(0, "better");
    EXPECT_EQ(link_->itemName().view(), "better");
    expectChanged(*link_);
}

TEST_F(FieldsTest, theSameNameChangesNeitherDateNorCount) {
    controller->endNameEdit(0, "link");
    expectUnchanged(*link_);
}

TEST_F(FieldsTest, anAbsentTextThatStaysEmptyStaysAbsent) {
    controller->endTagsEdit(0, "");
    EXPECT_TRUE(link_->itemTags().isNull());
    expectUnchanged(*link_);
}

TEST_F(FieldsTest, tagsAreTakenOver) {
    controller->endTagsEdit(1, "x, y");
    EXPECT_EQ(folder_->itemTags().view(), "x, y");
    expectChanged(*folder_);
}

TEST_F(FieldsTest, aNewAddressIsClassifiedAndItsRowShownAnew) {
    outline().selected = {link_};
    controller->endURLEdit(0, "mailto:ada@example.org");
    EXPECT_EQ(link_->itemURL().view(), "mailto:ada@example.org");
    EXPECT_EQ(link_->getType(), kMailType);
    EXPECT_EQ(controller->viewForTableColumn(Column::Name, 0, false).icon, "mailType");
    EXPECT_EQ(outline().reloaded, (std::vector<RowRange>{{0, 1}}));
    EXPECT_EQ(window->urlField, "mailto:ada@example.org");
    expectChanged(*link_);
}

TEST_F(FieldsTest, whatCanBeEdited) {
    EXPECT_TRUE(controller->shouldEdit(Column::Name, *folder_));
    EXPECT_FALSE(controller->shouldEdit(Column::URL, *folder_));
    EXPECT_TRUE(controller->shouldEdit(Column::Tags, *folder_));
    EXPECT_TRUE(controller->shouldEdit(Column::URL, *link_));
    link_->setItemLocked(true);
    EXPECT_FALSE(controller->shouldEdit(Column::URL, *link_));
    EXPECT_TRUE(controller->shouldEdit(Column::Name, *link_));
}

TEST_F(FieldsTest, editBookmarkBeginsWithTheNameOrAlerts) {
    controller->editBookmark();
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_FALSE(outline().edited);
    outline().selected = {folder_};
    controller->editBookmark();
    ASSERT_TRUE(outline().edited);
    EXPECT_EQ(*outline().edited, std::pair(Column::Name, folder_));
}

TEST_F(FieldsTest, theCommandsForOneFieldAreSilentWithoutARow) {
    controller->editNameBookmark();
    controller->editURLBookmark();
    controller->editTagsBookmark();
    controller->endEdit();
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_FALSE(outline().edited);
    EXPECT_EQ(outline().editingsEnded, 0);
    outline().selected = {link_};
    controller->endEdit();
    EXPECT_EQ(outline().editingsEnded, 1);
    controller->editTagsBookmark();
    EXPECT_FALSE(outline().edited) << "the tags column is not shown";
    controller->editURLBookmark();
    EXPECT_EQ(*outline().edited, std::pair(Column::URL, link_));
    controller->addTagsColumn();
    controller->editTagsBookmark();
    EXPECT_EQ(*outline().edited, std::pair(Column::Tags, link_));
}

TEST_F(FieldsTest, theAddressOfAFolderIsNotEdited) {
    outline().selected = {folder_};
    controller->editURLBookmark();
    EXPECT_FALSE(outline().edited);
}

TEST_F(FieldsTest, editingBeginsByItselfHalfASecondAfterTheSelectionChanges) {
    base.defaults.setBoolForKey("AutoEdit", true);
    outline().selected = {link_};
    outline().pointer = Column::URL;
    controller->selectionDidChange();
    timers.advance(0.49);
    EXPECT_FALSE(outline().edited);
    timers.advance(0.02);
    ASSERT_TRUE(outline().edited);
    EXPECT_EQ(*outline().edited, std::pair(Column::URL, link_));
}

TEST_F(FieldsTest, editingDoesNotBeginByItselfOnceTheFindBarWasCalled) {
    base.defaults.setBoolForKey("AutoEdit", true);
    outline().selected = {link_};
    outline().pointer = Column::Name;
    controller->selectionDidChange();
    controller->actions().perform(MenuItem{.action = "performFindPanelAction:"});
    timers.advance(1);
    EXPECT_FALSE(outline().edited);
}

TEST_F(FieldsTest, editingBeginsByItselfOnlyWhereItIsWanted) {
    const auto begins = [this] {
        outline().edited.reset();
        controller->selectionDidChange();
        timers.advance(1);
        return outline().edited.has_value();
    };
    outline().selected = {link_};
    outline().pointer = Column::Name;
    base.defaults.setBoolForKey("AutoEdit", false);
    EXPECT_FALSE(begins()) << "the setting is off";
    base.defaults.setBoolForKey("AutoEdit", true);
    EXPECT_TRUE(begins());
    window->active = false;
    EXPECT_FALSE(begins()) << "another program is in front";
    window->active = true;
    outline().pointer.reset();
    EXPECT_FALSE(begins()) << "the pointer is elsewhere";
    outline().pointer = Column::Name;
    outline().selected.clear();
    EXPECT_FALSE(begins()) << "nothing is selected";
}

} // namespace
} // namespace tabulon
