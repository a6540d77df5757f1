// The view of rows with other contents than a document's: its columns are data, and its model is any flat
// one.
#include "ui/document/OutlineRowsView.h"

#include "ui/document/OutlineHeader.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTest>

namespace tabulon {
namespace {

/// Returns columns in which Tags has half of the width, Name has the rest, and URL is shown on request.
OutlineColumns otherColumns() {
    return {{.identifier = Column::Tags, .title = "Labels", .width = ColumnWidth::Share, .share = 0.5},
            {.identifier = Column::URL, .title = "Where", .hideable = true},
            {.identifier = Column::Name, .title = "What", .width = ColumnWidth::Rest, .outline = true}};
}

class OutlineRowsViewTest : public testing::Test {
protected:
    OutlineRowsViewTest() : model(kRows, 3), view(otherColumns(), nullptr) {
        view.setRowFont(view.font(), 30);
        view.resize(600, 400);
        view.showModel(&model);
        view.show();
        QApplication::processEvents();
    }
    OutlineHeader& header() { return view.header(); }
    int width(Column column) { return header().sectionSize(header().sectionOf(column)); }
    using Columns = std::vector<Column>;

    static constexpr int kRows = 1000;
    QStandardItemModel model;
    OutlineRowsView view;
};

TEST_F(OutlineRowsViewTest, SectionsAreInTheOrderOfTheColumns) {
    EXPECT_EQ(header().sectionOf(Column::Tags), 0);
    EXPECT_EQ(header().sectionOf(Column::URL), 1);
    EXPECT_EQ(header().sectionOf(Column::Name), 2);
    EXPECT_EQ(header().columnAt(2), Column::Name);
}

TEST_F(OutlineRowsViewTest, HideableColumnsComeOnRequest) {
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Tags, Column::Name}));
    EXPECT_EQ(header().placeOf(Column::URL), std::nullopt);
    header().showColumn(Column::URL, 0, 100);
    EXPECT_EQ(header().shownColumns(), (Columns{Column::URL, Column::Tags, Column::Name}));
    EXPECT_EQ(header().placeOf(Column::Tags), 1u);
    EXPECT_EQ(width(Column::URL), 100);
    header().hideColumn(Column::URL);
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Tags, Column::Name}));
}

TEST_F(OutlineRowsViewTest, TheShareIsOfWhatColumnsWithAWidthLeave) {
    const int whole = view.viewport()->width();
    EXPECT_EQ(width(Column::Tags), whole / 2);
    EXPECT_EQ(width(Column::Name), whole - whole / 2);
    header().showColumn(Column::URL, 0, 100);
    EXPECT_EQ(width(Column::Tags), (whole - 100) / 2);
    EXPECT_EQ(header().length(), whole);
}

TEST_F(OutlineRowsViewTest, TheUsersWidthsAreReportedByColumn) {
    std::vector<std::pair<Column, int>> reported;
    QObject::connect(&header(), &OutlineHeader::widthChanged, &header(),
                     [&](Column column, int width) { reported.emplace_back(column, width); });
    header().setWidth(Column::Tags, 200);
    EXPECT_TRUE(reported.empty()) << "the program is not the user";
    header().resizeSection(header().sectionOf(Column::Tags), 220); // as by the mouse
    EXPECT_EQ(reported, (std::vector<std::pair<Column, int>>{{Column::Tags, 220}}));
    EXPECT_EQ(header().widthOf(Column::Tags), 220);
}

TEST_F(OutlineRowsViewTest, ColumnsChangeSides) {
    header().setBefore(Column::Name, Column::Tags, true);
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Name, Column::Tags}));
    EXPECT_TRUE(header().isBefore(Column::Name, Column::Tags));
    header().setBefore(Column::Name, Column::Tags, true);
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Name, Column::Tags})) << "it is there already";
    header().setBefore(Column::Name, Column::Tags, false);
    EXPECT_EQ(header().shownColumns(), (Columns{Column::Tags, Column::Name}));
}

TEST_F(OutlineRowsViewTest, AnItemIsWhereItsPlaceIs) {
    view.verticalScrollBar()->setValue(12345);
    for (const int row : {411, 412, 420})
        for (const int section : {0, 2}) {
            const QModelIndex index = model.index(row, section);
            EXPECT_EQ(view.indexAt(view.visualRect(index).center()), index) << row << " " << section;
        }
    EXPECT_EQ(view.geometry().rowAtY(0), 12345 / 30);
}

TEST_F(OutlineRowsViewTest, GoingToARowSelectsItAloneAndShowsIt) {
    view.goToRow(3);
    view.goToRow(700);
    EXPECT_EQ(view.currentIndex().row(), 700);
    EXPECT_EQ(view.selectionModel()->selectedRows().size(), 1);
    EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.indexOfRow(700))));
}

TEST_F(OutlineRowsViewTest, WithoutAModelThereAreNoRows) {
    view.verticalScrollBar()->setValue(500);
    view.showModel(nullptr);
    QApplication::processEvents();
    EXPECT_EQ(view.rowCount(), 0);
    EXPECT_FALSE(view.indexAt(QPoint(5, 5)).isValid());
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 0);
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_FALSE(view.currentIndex().isValid());
}

class NameCellTest : public OutlineRowsViewTest {
protected:
    /// A cell with every part, and a name of this many letters.
    static CellContent cellWithAll(int letters) {
        CellContent cell;
        cell.kind = CellKind::NameView;
        cell.text.string = Text(std::string(static_cast<std::size_t>(letters), 'x'));
        cell.icon = "httpType";
        cell.statusShown = true;
        cell.statusImage = "valid";
        cell.labelMark = LabelColor{};
        cell.indicatorImage = "ClippingTextIcon";
        return cell;
    }
    const OutlineGeometry& geometry() { return view.geometry(); }
};

TEST_F(NameCellTest, PartsFollowEachOtherInsideTheCell) {
    for (const int letters : {3, 500}) {
        const OutlineCellParts parts = geometry().outlineCell(2, 1, cellWithAll(letters));
        const QRect places[] = {parts.triangle, parts.status,    parts.icon,
                                parts.text,     parts.indicator, parts.labelMark};
        const QRect cell = geometry().cellRect(2, Column::Name);
        int left = cell.left();
        for (const QRect& place : places) {
            EXPECT_GE(place.left(), left);
            EXPECT_TRUE(cell.contains(place));
            left = place.right() + 1;
        }
    }
}

TEST_F(NameCellTest, PartsThatTheCellDoesNotHaveAreEmpty) {
    CellContent cell;
    cell.text.string = Text("name");
    const OutlineCellParts parts = geometry().outlineCell(0, 0, cell);
    EXPECT_TRUE(parts.status.isEmpty());
    EXPECT_TRUE(parts.indicator.isEmpty());
    EXPECT_TRUE(parts.labelMark.isEmpty());
    EXPECT_FALSE(parts.icon.isEmpty());
}

TEST_F(NameCellTest, EachLevelIsIndentedUntilNamesNeedTheRoom) {
    const auto left = [&](int level) { return geometry().outlineCell(0, level, {}).triangle.left(); };
    EXPECT_EQ(left(1) - left(0), geometry().indentation());
    EXPECT_EQ(left(2) - left(1), geometry().indentation());
    EXPECT_EQ(left(40), left(48)) << "the name keeps its room";
    EXPECT_TRUE(geometry().cellRect(0, Column::Name).contains(geometry().outlineCell(0, 48, {}).icon));
}

TEST_F(NameCellTest, RowsAreHighEnoughForTheirFont) {
    QFont large = view.font();
    large.setPointSize(40);
    view.setRowFont(large, 10);
    EXPECT_GE(geometry().rowHeight(), QFontMetrics(large).height());
    EXPECT_LE(geometry().iconSize(), geometry().rowHeight());
    view.setRowFont(view.font(), 200);
    EXPECT_EQ(geometry().rowHeight(), 200);
}

} // namespace
} // namespace tabulon
