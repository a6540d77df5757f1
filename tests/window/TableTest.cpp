// The table as a whole: font size and row height, the tags column.
#include "base/Settings.h"
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

class TableTest : public WindowTest {
protected:
    void store(double fontSize, double rowHeight) {
        setValue(base.defaults, settings::kFontSize, fontSize);
        setValue(base.defaults, settings::kRowHeight, rowHeight);
    }
    double stored(const Setting<double>& setting) { return valueOf(base.defaults, setting); }
    MenuItem item(const char* action) { return MenuItem{.action = action}; }
};

TEST_F(TableTest, WindowComesUpWithTheStoredFontAndRowHeight) {
    store(15, 21.5);
    base.defaults.setStringForKey(settings::kFontName.key, "Serif");
    open();
    EXPECT_EQ(outline().font.name, "Serif");
    EXPECT_EQ(outline().font.size, 15);
    EXPECT_EQ(outline().rowHeight, 21.5);
}

TEST_F(TableTest, FontSizeElevenForcesARowHeightOfSeventeenAndStoresIt) {
    store(11, 30);
    open();
    EXPECT_EQ(outline().rowHeight, 17);
    EXPECT_EQ(stored(settings::kRowHeight), 17);
}

TEST_F(TableTest, OtherFontSizesKeepTheStoredRowHeight) {
    store(11.5, 30);
    open();
    EXPECT_EQ(outline().rowHeight, 30);
    EXPECT_EQ(stored(settings::kRowHeight), 30);
}

TEST_F(TableTest, ZoomingInGrowsFontAndRowsByAPointAndStoresBoth) {
    open();
    controller->table().zoomIn();
    EXPECT_EQ(outline().font.size, 12);
    EXPECT_EQ(outline().rowHeight, 18);
    EXPECT_EQ(stored(settings::kFontSize), 12);
    EXPECT_EQ(stored(settings::kRowHeight), 18);
}

TEST_F(TableTest, ZoomingOutToElevenKeepsTheRowHeightUntilAWindowComesUp) {
    store(12, 25);
    open();
    controller->table().zoomOut();
    EXPECT_EQ(outline().font.size, 11);
    EXPECT_EQ(outline().rowHeight, 24);
    open();
    EXPECT_EQ(outline().rowHeight, 17);
}

TEST_F(TableTest, ZoomingEndsWhereTextsCanNoLongerBeRead) {
    store(TableSettings::kSmallestFontSize, 1);
    open();
    controller->table().zoomOut();
    EXPECT_EQ(stored(settings::kFontSize), TableSettings::kSmallestFontSize);
    EXPECT_TRUE(controller->actions().validateMenuItem(item("zoomOut:"))) << "it can be chosen all the same";
    store(TableSettings::kLargestFontSize, 80);
    controller->table().zoomIn();
    EXPECT_EQ(stored(settings::kFontSize), TableSettings::kLargestFontSize);
    EXPECT_TRUE(controller->actions().validateMenuItem(item("zoomIn:")));
    controller->actions().perform(item("zoomOut:"));
    EXPECT_EQ(stored(settings::kFontSize), TableSettings::kLargestFontSize - 1);
}

TEST_F(TableTest, FontSizeBeyondTheLimitsComesBackByZooming) {
    store(200, 230);
    open();
    controller->table().zoomIn();
    EXPECT_EQ(stored(settings::kFontSize), 200);
    controller->table().zoomOut();
    EXPECT_EQ(stored(settings::kFontSize), 199);
}

TEST_F(TableTest, URLFieldTakesFontSizesFromElevenUpToFourteen) {
    store(10, 16);
    open();
    EXPECT_EQ(window->urlFieldFontSize, 0) << "it keeps its own";
    controller->table().zoomIn();
    EXPECT_EQ(window->urlFieldFontSize, 11);
    controller->table().setTableFontSizeRowHeight(13.5, 20);
    EXPECT_EQ(window->urlFieldFontSize, 13.5);
    controller->table().setTableFontSizeRowHeight(14, 20);
    EXPECT_EQ(window->urlFieldFontSize, 13.5) << "fourteen is no more";
}

TEST_F(TableTest, TagsColumnIsNotShownFromTheStart) {
    open();
    EXPECT_FALSE(outline().tagsColumn);
}

TEST_F(TableTest, TagsColumnComesUpWhereTheSettingSaysSo) {
    setValue(base.defaults, settings::kAddTagsColumn, true);
    setValue(base.defaults, settings::kTagsWidth, 140);
    open();
    EXPECT_EQ(outline().tagsColumn, 1u);
    EXPECT_EQ(outline().tagsWidth, 140);
}

TEST_F(TableTest, AddingTheTagsColumnTwiceAddsOne) {
    open();
    controller->table().addTagsColumn();
    controller->table().addTagsColumn();
    EXPECT_EQ(outline().tagsColumn, 1u);
    controller->table().removeTagsColumn();
    EXPECT_FALSE(outline().tagsColumn);
    controller->table().removeTagsColumn();
    controller->table().addTagsColumn();
    EXPECT_EQ(outline().tagsColumn, 1u);
}

TEST_F(TableTest, MovedTagsColumnIsBackAtItsIndexInTheNextWindow) {
    setValue(base.defaults, settings::kAddTagsColumn, true);
    open();
    outline().tagsColumn = 2;
    controller->table().outlineViewColumnDidMove();
    EXPECT_EQ(valueOf(base.defaults, settings::kTagsIndex), 2);
    open();
    EXPECT_EQ(outline().tagsColumn, 2u);
}

TEST_F(TableTest, MovingColumnsWithoutTagsKeepsTheirIndex) {
    open();
    controller->table().outlineViewColumnDidMove();
    EXPECT_EQ(valueOf(base.defaults, settings::kTagsIndex), 1);
}

TEST_F(TableTest, ImpossibleTagsIndexIsTakenAsTheNearest) {
    open();
    setValue(base.defaults, settings::kTagsIndex, -3);
    controller->table().addTagsColumn();
    EXPECT_EQ(outline().tagsColumn, 0u);
    controller->table().removeTagsColumn();
    setValue(base.defaults, settings::kTagsIndex, 1000);
    controller->table().addTagsColumn();
    EXPECT_EQ(outline().tagsColumn, 2u);
}

TEST_F(TableTest, WidthOfTheTagsColumnIsKept) {
    setValue(base.defaults, settings::kAddTagsColumn, true);
    open();
    controller->table().tagsColumnDidResize(222.5);
    open();
    EXPECT_EQ(outline().tagsWidth, 222.5);
}

} // namespace
} // namespace tabulon
