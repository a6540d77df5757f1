// The columns of the outline: widths, places, the tags column, the font and the row height.
#include "base/Settings.h"
#include "tests/ui/OutlineFixture.h"

#include <QApplication>
#include <QScrollBar>
#include <QVBoxLayout>

namespace tabulon {
namespace {

class OutlineColumnsTest : public OutlineTest {
protected:
    void SetUp() override {
        add(makeLink("a")).setItemTags("one, two");
        openWidget();
    }
    OutlineHeader& header() { return widget().header(); }
    int width(Column column) { return header().sectionSize(header().sectionOf(column)); }
    int total() {
        int sum = 0;
        for (const Column column : header().shownColumns())
            sum += width(column);
        return sum;
    }
    // Drags the right border of the column with the mouse.
    void drag(Column column, int change) {
        header().resizeSection(header().sectionOf(column), width(column) + change);
    }
    void move(Column column, int place) {
        header().moveSection(header().visualIndex(header().sectionOf(column)), place);
    }
    using Columns = std::vector<Column>;
};

TEST_F(OutlineColumnsTest, TagsColumnComesToItsIndexAndGoes) {
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Name, Column::URL}));
    controller->table().addTagsColumn();
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Name, Column::Tags, Column::URL}));
    EXPECT_GT(cell(0, Column::Tags).width(), 0);
    EXPECT_EQ(widget().model()->index(0, 2).data().toString(), "one, two");
    controller->table().removeTagsColumn();
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Name, Column::URL}));
}

TEST_F(OutlineColumnsTest, HundredPointsOfTagsAreThatMuchOfAnInch) {
    controller->table().addTagsColumn();
    EXPECT_NEAR(width(Column::Tags), 100 * widget().logicalDpiX() / 72.0, 1);
}

TEST_F(OutlineColumnsTest, TheUsersMoveOfAColumnIsStoredAsTagsIndex) {
    controller->table().addTagsColumn();
    move(Column::Tags, 2);
    EXPECT_EQ(valueOf(base.defaults, settings::kTagsIndex), 2);
    move(Column::URL, 0);
    move(Column::Tags, 0);
    EXPECT_EQ(valueOf(base.defaults, settings::kTagsIndex), 0);
}

TEST_F(OutlineColumnsTest, TagsColumnIsBackAtItsPlaceInTheNextWindow) {
    setValue(base.defaults, settings::kAddTagsColumn, true);
    for (const int place : {2, 0, 1}) {
        openWidget();
        move(Column::Tags, place);
        openWidget();
        EXPECT_EQ(header().placeOf(Column::Tags), static_cast<std::size_t>(place));
    }
}

TEST_F(OutlineColumnsTest, AddingTheTagsColumnIsNoMoveByTheUser) {
    setValue(base.defaults, settings::kTagsIndex, 9);
    controller->table().addTagsColumn();
    EXPECT_EQ(header().placeOf(Column::Tags), 2u);
    EXPECT_EQ(valueOf(base.defaults, settings::kTagsIndex), 9);
}

TEST_F(OutlineColumnsTest, ColumnsFillTheOutlineWhateverIsDragged) {
    controller->table().addTagsColumn();
    for (const Column column : {Column::Name, Column::Tags, Column::URL})
        for (const int change : {40, -70, 5000, -5000, 30}) {
            drag(column, change);
            EXPECT_EQ(total(), widget().viewport()->width());
            EXPECT_EQ(widget().horizontalScrollBar()->maximum(), 0);
        }
    widget().resize(500, 300);
    EXPECT_EQ(total(), widget().viewport()->width());
}

TEST_F(OutlineColumnsTest, ColumnsFillAnOutlineThatLosesItsScrollBarAsItComesUp) {
    QWidget host;
    auto* outline = new OutlineWidget(*controller, &host);
    auto* layout = new QVBoxLayout(&host);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(outline);
    host.resize(900, 600);
    host.show();
    QApplication::processEvents();
    EXPECT_EQ(outline->header().length(), outline->viewport()->width());
    EXPECT_EQ(outline->header().width(), outline->viewport()->width());
    outline->detach();
}

TEST_F(OutlineColumnsTest, WidthOfTheTagsColumnIsStoredInPoints) {
    controller->table().addTagsColumn();
    const int before = width(Column::Tags);
    drag(Column::Tags, 20);
    EXPECT_EQ(width(Column::Tags), before + 20);
    EXPECT_NEAR(valueOf(base.defaults, settings::kTagsWidth), (before + 20) * 72.0 / widget().logicalDpiX(),
                0.01);
}

TEST_F(OutlineColumnsTest, HidingTheTagsColumnIsNoResizingByTheUser) {
    controller->table().addTagsColumn();
    drag(Column::Tags, 20);
    const double stored = valueOf(base.defaults, settings::kTagsWidth);
    controller->table().removeTagsColumn();
    EXPECT_EQ(valueOf(base.defaults, settings::kTagsWidth), stored);
    controller->table().addTagsColumn();
    EXPECT_NEAR(width(Column::Tags), stored * widget().logicalDpiX() / 72.0, 1);
}

TEST_F(OutlineColumnsTest, BorderBetweenURLAndTagsResizesTags) {
    setValue(base.defaults, settings::kTagsIndex, 2);
    controller->table().addTagsColumn();
    const int tags = width(Column::Tags);
    const int name = width(Column::Name);
    drag(Column::URL, 25);
    EXPECT_EQ(width(Column::Tags), tags - 25);
    EXPECT_EQ(width(Column::Name), name);
}

TEST_F(OutlineColumnsTest, WideNameColumnLeavesRoomForTheOthersInANarrowWindow) {
    header().setWidth(Column::Name, 3000);
    EXPECT_EQ(width(Column::URL), OutlineHeader::kSmallestColumn);
    EXPECT_EQ(header().widthOf(Column::Name), 3000) << "it comes back in a wide window";
}

TEST_F(OutlineColumnsTest, NamesAndTrianglesWorkWhereverTheNameColumnStands) {
    closeWidget();
    add(makeLink("inside"), &add(makeFolder("outer", false)));
    openWidget();
    move(Column::Name, 1);
    EXPECT_TRUE(header().isBefore(Column::URL, Column::Name));
    const QRect name = cell(1, Column::Name);
    EXPECT_GT(name.left(), 300);
    QTest::mouseClick(widget().viewport(), Qt::LeftButton, {}, QPoint(name.left() + 12, name.center().y()));
    EXPECT_EQ(controller->outline().numberOfRows(), 3u);
}

TEST_F(OutlineColumnsTest, ColumnsKeepTheirPlacesAndWidthsWhenTheTreeIsReplaced) {
    controller->table().addTagsColumn();
    move(Column::Tags, 0);
    drag(Column::Name, 33);
    const int name = width(Column::Name);
    document.setMaster(makeFolder("Master"));
    document.updateUI();
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Tags, Column::Name, Column::URL}));
    EXPECT_EQ(width(Column::Name), name);
}

TEST_F(OutlineColumnsTest, ZoomingGrowsFontRowsAndImagesTogether) {
    const int height = cell(0, Column::Name).height();
    const double size = widget().font().pointSizeF();
    controller->table().zoomIn();
    EXPECT_EQ(widget().font().pointSizeF(), size + 1);
    EXPECT_GT(cell(0, Column::Name).height(), height);
    controller->table().setTableFontSizeRowHeight(40, 10);
    EXPECT_GE(cell(0, Column::Name).height(), widget().fontMetrics().height()) << "texts are never cut";
}

TEST_F(OutlineColumnsTest, ZoomingKeepsTheFirstRowOnTheScreenThere) {
    for (int i = 0; i < 500; ++i)
        add(makeLink("link"));
    openWidget();
    widget().verticalScrollBar()->setValue(100 * cell(0, Column::Name).height());
    ASSERT_EQ(widget().indexAt({100, 0}).row(), 100);
    controller->table().zoomIn();
    EXPECT_EQ(widget().indexAt({100, 0}).row(), 100);
}

TEST_F(OutlineColumnsTest, NonsenseInTheSettingsStillGivesATable) {
    for (const char* nonsense : {"-1e300", "1e300", "0", "x"}) {
        for (const std::string_view key : {settings::kFontSize.key, settings::kRowHeight.key,
                                           settings::kTagsWidth.key, settings::kTagsIndex.key})
            base.defaults.setStringForKey(key, nonsense);
        setValue(base.defaults, settings::kAddTagsColumn, true);
        openWidget();
        EXPECT_GT(cell(0, Column::Name).height(), 10) << nonsense;
        EXPECT_LT(cell(0, Column::Name).height(), 3000) << nonsense;
        EXPECT_GE(width(Column::Tags), OutlineHeader::kSmallestColumn) << nonsense;
        EXPECT_FALSE(widget().grab().isNull());
    }
}

} // namespace
} // namespace tabulon
