// The contents of the outline's cells for a node.
#include "base/Settings.h"
#include "tests/window/WindowFixture.h"
#include "window/ShownAddress.h"

namespace tabulon {
namespace {

using PresentationTest = WindowTest;

constexpr LabelColor kRed{1, 0, 0, 1};

TEST_F(PresentationTest, SeparatorIsALineInTheNameColumnAndHasNoTags) {
    add(makeSeparator());
    open();
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Name, 0, false).kind, CellKind::Separator);
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::URL, 0, false).kind, CellKind::URLView);
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Tags, 0, false).kind, CellKind::None);
}

TEST_F(PresentationTest, NullTextsAreShownEmpty) {
    add(Bookmark::init(base.now()));
    open();
    const CellContent name = controller->cells().viewForTableColumn(Column::Name, 0, false);
    EXPECT_FALSE(name.text.string.isNull());
    EXPECT_TRUE(name.text.string.isEmpty());
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::URL, 0, false).text.string.isNull());
}

TEST_F(PresentationTest, IconFollowsTheType) {
    add(makeFolder("f"));
    add(makeLink("m", "mailto:a@example.org"));
    open();
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Name, 0, false).icon, "folder");
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Name, 1, false).icon, "mailType");
}

TEST_F(PresentationTest, LabelColoursAllTextsWhileUnselectedAndNoneWhileSelected) {
    add(makeLink("a")).setLabel(2);
    open();
    for (const Column column : {Column::Name, Column::URL, Column::Tags}) {
        EXPECT_EQ(controller->cells().viewForTableColumn(column, 0, false).text.color, kRed);
        EXPECT_FALSE(controller->cells().viewForTableColumn(column, 0, true).text.color);
    }
}

TEST_F(PresentationTest, UnlabelledTextsHaveTheViewsOwnColour) {
    add(makeLink("a"));
    open();
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::Name, 0, false).text.color);
}

TEST_F(PresentationTest, LabelTwelveIsBlack) {
    add(makeLink("a")).setLabel(12);
    open();
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Name, 0, false).text.color,
              (LabelColor{0, 0, 0, 1}));
}

TEST_F(PresentationTest, NoteAndTagsGiveOneIndicatorWhoseTipIsTheNote) {
    Bookmark& item = add(makeLink("a"));
    item.setItemNote("the note");
    item.setItemTags("one, two");
    open();
    const CellContent cell = controller->cells().viewForTableColumn(Column::Name, 0, false);
    EXPECT_EQ(cell.indicatorImage, "ClippingTextIcon");
    EXPECT_EQ(cell.indicatorToolTip.view(), "the note");
    EXPECT_EQ(cell.iconToolTip.view(), "Tags: one, two");
}

TEST_F(PresentationTest, TagsAloneShowTheSameIndicatorWithTheTagsAsTip) {
    add(makeLink("a")).setItemTags("one");
    open();
    const CellContent cell = controller->cells().viewForTableColumn(Column::Name, 0, false);
    EXPECT_EQ(cell.indicatorImage, "ClippingTextIcon");
    EXPECT_EQ(cell.indicatorToolTip.view(), "one");
}

TEST_F(PresentationTest, EmptyNoteAndTagsShowNoIndicator) {
    Bookmark& item = add(makeLink("a"));
    item.setItemNote("");
    item.setItemTags("");
    open();
    const CellContent cell = controller->cells().viewForTableColumn(Column::Name, 0, false);
    EXPECT_EQ(cell.indicatorImage, "");
    EXPECT_TRUE(cell.iconToolTip.isNull());
}

TEST_F(PresentationTest, BalloonSettingsHideTheTipsAndKeepTheIndicator) {
    setValue(base.defaults, settings::kShowBalloonNote, false);
    setValue(base.defaults, settings::kShowBalloonTags, false);
    Bookmark& item = add(makeLink("a"));
    item.setItemNote("the note");
    item.setItemTags("one");
    open();
    const CellContent cell = controller->cells().viewForTableColumn(Column::Name, 0, false);
    EXPECT_EQ(cell.indicatorImage, "ClippingTextIcon");
    EXPECT_TRUE(cell.indicatorToolTip.isNull());
    EXPECT_TRUE(cell.iconToolTip.isNull());
    EXPECT_EQ(controller->cells().toolTipForCell(Column::Name, 0).view(), "");
}

TEST_F(PresentationTest, ToolTipOfTheNameCellIsTheNote) {
    add(makeLink("a")).setItemNote("the note");
    open();
    EXPECT_EQ(controller->cells().toolTipForCell(Column::Name, 0).view(), "the note");
    EXPECT_EQ(controller->cells().toolTipForCell(Column::URL, 0).view(), "");
}

TEST_F(PresentationTest, MarksAreHiddenFromTheStart) {
    add(makeLink("a")).setStatus(3);
    open();
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::Name, 0, false).statusShown);
}

TEST_F(PresentationTest, ShownMarksGoByTheStatusAndNeverStandOnFolders) {
    setValue(base.defaults, settings::kShowMarks, true);
    add(makeLink("a")).setStatus(3);
    add(makeLink("b")).setStatus(6);
    add(makeFolder("f")).setStatus(3);
    open();
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Name, 0, false).statusImage, "brokenStatus");
    EXPECT_TRUE(controller->cells().viewForTableColumn(Column::Name, 1, false).statusShown);
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Name, 1, false).statusImage, "");
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::Name, 2, false).statusShown);
}

TEST_F(PresentationTest, LockedBookmarkKeepsItsURLAndAFolderHasNoneToEdit) {
    add(makeLink("a")).setItemLocked(true);
    add(makeLink("b"));
    add(makeFolder("f"));
    open();
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::URL, 0, false).editable);
    EXPECT_TRUE(controller->cells().viewForTableColumn(Column::Name, 0, false).editable);
    EXPECT_TRUE(controller->cells().viewForTableColumn(Column::URL, 1, false).editable);
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::URL, 2, false).editable);
}

TEST_F(PresentationTest, FontIsTheSystemsUntilOneIsNamed) {
    open();
    EXPECT_EQ(controller->table().font().name, "");
    EXPECT_EQ(controller->table().font().size, 11);
    base.defaults.setStringForKey(settings::kFontName.key, "Serif");
    EXPECT_EQ(controller->table().font().name, "Serif");
}

TEST_F(PresentationTest, LevelsCountFromTheTopAndStopAtTheDeepestIndent) {
    Bookmark* parent = &add(makeFolder("0"));
    for (int depth = 1; depth < 100; ++depth)
        parent = &add(makeFolder("deeper"), parent);
    open();
    EXPECT_EQ(controller->outline().levelForRow(0), 0);
    EXPECT_EQ(controller->outline().levelForRow(7), 7);
    EXPECT_EQ(controller->outline().levelForRow(99), Outline::kDeepestIndent);
}

TEST_F(PresentationTest, TypingFindsTheNextNameGoingRound) {
    add(makeLink("alpha"));
    add(makeLink("Beta"));
    add(makeLink("\xC3\x84rger"));
    add(makeLink("beach"));
    open();
    EXPECT_EQ(controller->finding().rowWithPrefix("be", 0), 1u);
    EXPECT_EQ(controller->finding().rowWithPrefix("be", 2), 3u);
    EXPECT_EQ(controller->finding().rowWithPrefix("al", 2), 0u);
    EXPECT_EQ(controller->finding().rowWithPrefix("\xC3\xA4", 0), 2u);
    EXPECT_FALSE(controller->finding().rowWithPrefix("zz", 0));
}

TEST_F(PresentationTest, OfAnEndlessAddressTheCellHasWhatALineShows) {
    const std::string beginning(kLongestShownLine - 1, 'x');
    const std::string tooLong = beginning + "\xD9\x86";
    add(makeLink("long", (tooLong + tooLong).c_str()));
    add(makeLink("fits", (beginning + "y").c_str()));
    open();
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::URL, 0, false).text.string, Text(beginning));
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::URL, 1, false).text.string,
              Text(beginning + "y"));
    controller->outline().mouseMoved(0);
    EXPECT_EQ(window->urlField, beginning);
}

TEST_F(PresentationTest, ASelectedRowHasItsLabelAsAMark) {
    add(makeLink("a")).setLabel(2);
    add(makeLink("b"));
    open();
    EXPECT_EQ(controller->cells().viewForTableColumn(Column::Name, 0, true).labelMark, kRed);
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::Name, 0, false).labelMark);
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::URL, 0, true).labelMark);
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::Name, 1, true).labelMark);
}

} // namespace
} // namespace tabulon
