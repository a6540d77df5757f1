// Editing in place: the text that is committed, dates, and editing that begins by command or automatically.
#include "base/Settings.h"
#include "tests/window/WindowFixture.h"

#include <functional>

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
    controller->fields().endNameEdit(0, "better");
    EXPECT_EQ(link_->itemName().view(), "better");
    expectChanged(*link_);
}

TEST_F(FieldsTest, theSameNameChangesNeitherDateNorCount) {
    controller->fields().endNameEdit(0, "link");
    expectUnchanged(*link_);
}

TEST_F(FieldsTest, anAbsentTextThatStaysEmptyStaysAbsent) {
    controller->fields().endTagsEdit(0, "");
    EXPECT_TRUE(link_->itemTags().isNull());
    expectUnchanged(*link_);
}

TEST_F(FieldsTest, tagsAreTakenOver) {
    controller->fields().endTagsEdit(1, "x, y");
    EXPECT_EQ(folder_->itemTags().view(), "x, y");
    expectChanged(*folder_);
}

TEST_F(FieldsTest, aNewAddressIsClassifiedAndItsRowShownAnew) {
    select({link_});
    controller->fields().endURLEdit(0, "mailto:ada@example.org");
    EXPECT_EQ(link_->itemURL().view(), "mailto:ada@example.org");
    EXPECT_EQ(link_->getType(), kMailType);
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Name, 0, false).icon, "mailType");
    EXPECT_EQ(outline().reloaded, (std::vector<RowRange>{{0, 1}}));
    EXPECT_EQ(window->urlField, "mailto:ada@example.org");
    expectChanged(*link_);
}

TEST_F(FieldsTest, whatCanBeEdited) {
    EXPECT_TRUE(FieldEditing::shouldEdit(Column::Name, *folder_));
    EXPECT_FALSE(FieldEditing::shouldEdit(Column::URL, *folder_));
    EXPECT_TRUE(FieldEditing::shouldEdit(Column::Tags, *folder_));
    EXPECT_TRUE(FieldEditing::shouldEdit(Column::URL, *link_));
    link_->setItemLocked(true);
    EXPECT_FALSE(FieldEditing::shouldEdit(Column::URL, *link_));
    EXPECT_TRUE(FieldEditing::shouldEdit(Column::Name, *link_));
}

TEST_F(FieldsTest, editBookmarkBeginsWithTheNameOrAlerts) {
    controller->fields().editBookmark();
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_FALSE(outline().edited);
    select({folder_});
    controller->fields().editBookmark();
    ASSERT_TRUE(outline().edited);
    EXPECT_EQ(*outline().edited, std::pair(Column::Name, folder_));
}

TEST_F(FieldsTest, theCommandsForOneFieldAreSilentWithoutARow) {
    controller->fields().editNameBookmark();
    controller->fields().editURLBookmark();
    controller->fields().editTagsBookmark();
    controller->fields().endEdit();
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_FALSE(outline().edited);
    EXPECT_EQ(outline().editingsBegun, 0);
    select({link_});
    controller->fields().editNameBookmark();
    controller->fields().endEdit();
    EXPECT_EQ(outline().editingsEnded, 1);
    controller->fields().editTagsBookmark();
    EXPECT_FALSE(outline().edited) << "the tags column is not shown";
    controller->fields().editURLBookmark();
    EXPECT_EQ(*outline().edited, std::pair(Column::URL, link_));
    controller->table().addTagsColumn();
    controller->fields().editTagsBookmark();
    EXPECT_EQ(*outline().edited, std::pair(Column::Tags, link_));
}

TEST_F(FieldsTest, theAddressOfAFolderIsNotEdited) {
    select({folder_});
    controller->fields().editURLBookmark();
    EXPECT_FALSE(outline().edited);
}

TEST_F(FieldsTest, editingBeginsByItselfHalfASecondAfterTheSelectionChanges) {
    setValue(base.defaults, settings::kAutoEdit, true);
    select({link_});
    outline().pointer = Column::URL;
    controller->outline().selectionDidChange(SelectedBy::User);
    timers.advance(0.49);
    EXPECT_FALSE(outline().edited);
    timers.advance(0.02);
    ASSERT_TRUE(outline().edited);
    EXPECT_EQ(*outline().edited, std::pair(Column::URL, link_));
}

TEST_F(FieldsTest, editingDoesNotBeginByItselfOnceTheFindBarWasCalled) {
    setValue(base.defaults, settings::kAutoEdit, true);
    select({link_});
    outline().pointer = Column::Name;
    controller->outline().selectionDidChange(SelectedBy::User);
    controller->actions().perform(MenuItem{.action = "performFindPanelAction:"});
    timers.advance(1);
    EXPECT_FALSE(outline().edited);
}

TEST_F(FieldsTest, editingDoesNotBeginByItselfOnceAMenuWasOpened) {
    setValue(base.defaults, settings::kAutoEdit, true);
    select({link_});
    outline().pointer = Column::Name;
    controller->outline().selectionDidChange(SelectedBy::User);
    controller->fields().cancelAutoEdit();
    timers.advance(1);
    EXPECT_FALSE(outline().edited);
}

TEST_F(FieldsTest, editingBeginsByItselfOnlyWhereItIsWanted) {
    const auto begins = [this] {
        outline().edited.reset();
        controller->outline().selectionDidChange(SelectedBy::User);
        timers.advance(1);
        return outline().edited.has_value();
    };
    select({link_});
    outline().pointer = Column::Name;
    EXPECT_TRUE(begins()) << "the setting is on at first";
    setValue(base.defaults, settings::kAutoEdit, false);
    EXPECT_FALSE(begins()) << "the setting is off";
    setValue(base.defaults, settings::kAutoEdit, true);
    EXPECT_TRUE(begins());
    window->active = false;
    EXPECT_FALSE(begins()) << "another window is in front";
    window->active = true;
    outline().pointer.reset();
    EXPECT_FALSE(begins()) << "the pointer is elsewhere";
    outline().pointer = Column::Name;
    select({});
    EXPECT_FALSE(begins()) << "nothing is selected";
}

TEST_F(FieldsTest, editingThatIsDueBeginsOnlyWhereTheUserStillIs) {
    select({link_});
    outline().pointer = Column::URL;
    const auto begins = [this](const std::function<void()>& meanwhile) {
        controller->fields().commitEditing();
        controller->outline().selectionDidChange(SelectedBy::User);
        timers.advance(0.4);
        meanwhile();
        timers.advance(1);
        return outline().edited == std::optional(std::pair(Column::URL, link_));
    };
    EXPECT_TRUE(begins([] {}));
    EXPECT_FALSE(begins([this] { window->active = false; })) << "another window came to the front";
    window->active = true;
    EXPECT_FALSE(begins([this] { outline().keyboard = false; })) << "the user types elsewhere";
    outline().keyboard = true;
    EXPECT_FALSE(begins([this] { controller->fields().editNameBookmark(); })) << "another cell is edited";
    EXPECT_FALSE(begins([this] { controller->dragging().beginDraggingSession(); })) << "the row is dragged";
}

TEST_F(FieldsTest, rowsThatACommandSelectsAreNotEditedByThemselves) {
    outline().pointer = Column::URL;
    controller->editing().newBookmark();
    const Bookmark* made = &controller->outline().itemAtRow(0);
    timers.advance(1);
    ASSERT_TRUE(outline().edited);
    EXPECT_EQ(outline().edited->first, Column::Name);
    EXPECT_EQ(outline().edited->second, made);
    controller->fields().commitEditing();
    pasteboard.setString("name\thttps://b.example/");
    controller->clipboard().pasteEditMenu();
    timers.advance(1);
    EXPECT_FALSE(outline().edited);
}

TEST_F(FieldsTest, aSecondCellEndsTheFirstAndTakesItOver) {
    select({link_});
    controller->fields().editNameBookmark();
    outline().typed = "typed";
    controller->fields().editURLBookmark();
    EXPECT_EQ(link_->itemName().view(), "typed");
    EXPECT_EQ(*outline().edited, std::pair(Column::URL, link_));
    outline().typed = "https://typed.example/";
    controller->editing().newFolder();
    EXPECT_EQ(link_->itemURL().view(), "https://typed.example/");
}

TEST_F(FieldsTest, everyActionTakesOverWhatIsBeingTyped) {
    select({link_});
    int number = 0;
    for (const char* action :
         {"expandAll:", "collapseAll:", "zoomIn:", "copy:", "selectAll:", "showMarks:", "findNext:",
          "performFindPanelAction:", "sortByName:", "getInfo:", "moveUp:"}) {
        select({link_});
        controller->fields().editNameBookmark();
        const std::string text = "typed " + std::to_string(++number);
        outline().typed = text;
        controller->actions().perform(MenuItem{.action = action});
        EXPECT_EQ(link_->itemName().view(), text) << action;
        EXPECT_FALSE(outline().edited) << action;
    }
}

TEST_F(FieldsTest, aDropTakesOverWhatIsBeingTyped) {
    select({link_});
    controller->fields().editNameBookmark();
    outline().typed = "typed";
    PasteboardItem item;
    item.set(kURLType, "https://c.example/");
    const DragInfo drag{.source = nullptr, .copies = true, .items = {item}};
    ASSERT_EQ(controller->dragging().validateDrop(drag, nullptr, 0), DragOperation::Copy);
    EXPECT_TRUE(controller->dragging().acceptDrop(drag, nullptr, 0));
    EXPECT_EQ(link_->itemName().view(), "typed");
    EXPECT_FALSE(outline().edited);
}

TEST_F(FieldsTest, beforeTheWindowGoesTheInfoPanelSavesItsChange) {
    select({link_});
    controller->window().getInfo();
    window->info->setNote("typed");
    controller->fields().commitEditing();
    EXPECT_TRUE(link_->itemNote().isNull()) << "the panel stays as it is";
    controller->finishEditing();
    EXPECT_EQ(link_->itemNote().view(), "typed");
    EXPECT_EQ(window->infoPanel.dismissals, 1);
}

} // namespace
} // namespace tabulon
