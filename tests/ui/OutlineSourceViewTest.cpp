// The view of rows over a source that is no document: other columns, in another order, and their own cells.
#include "ui/document/OutlineSourceView.h"

#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineModel.h"
#include "window/RowSource.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {
namespace {

constexpr Column kDate{"Date"};
constexpr Column kPage{"Page"};
constexpr Column kDocument{"Document"};

/// A list of visited pages. Every tenth one is a folder of those that follow it.
class Visits : public RowSource {
public:
    OutlineColumns columns() const override {
        return {{.identifier = kDate, .title = "When", .width = ColumnWidth::Share, .share = 0.3},
                {.identifier = kPage, .title = "What", .width = ColumnWidth::Rest, .outline = true},
                {.identifier = kDocument, .title = "Where", .hideable = true}};
    }
    std::size_t numberOfRows() const override { return count; }
    TreePlace treePlace(std::size_t row) const override {
        const bool folder = row % 10 == 0;
        return {.level = folder ? 0 : 1, .isFolder = folder, .isExpanded = folder};
    }
    CellContent viewForTableColumn(Column column, std::size_t row, bool /*selected*/) const override {
        asked.emplace(std::string(column.identifier()), row);
        CellContent cell;
        cell.kind = column == kPage ? CellKind::NameView : CellKind::TextView;
        cell.text.string = Text(std::string(column.identifier()) + " " + std::to_string(row));
        if (column == kPage)
            cell.icon = "httpType";
        cell.editable = column == kDocument;
        return cell;
    }
    Text toolTipForCell(Column column, std::size_t row) const override {
        return column == kDate ? Text("tip " + std::to_string(row)) : Text("");
    }

    std::size_t count = 1000;
    /// The cells whose contents were requested.
    mutable std::set<std::pair<std::string, std::size_t>> asked;
};

class OutlineSourceViewTest : public testing::Test {
protected:
    OutlineSourceViewTest() : view(visits, nullptr) {
        view.setRowFont(view.font(), 30);
        view.resize(600, 400);
        view.show();
        QApplication::processEvents();
    }
    QModelIndex index(int row, Column column) { return view.model()->index(row, header().sectionOf(column)); }
    std::string text(int row, Column column) { return index(row, column).data().toString().toStdString(); }
    QRect cell(int row, Column column) { return view.visualRect(index(row, column)); }
    OutlineHeader& header() { return view.header(); }
    QImage picture() { return view.viewport()->grab().toImage(); }
    /// Paints all rows, and returns the cells whose contents were requested for that.
    std::set<std::pair<std::string, std::size_t>> painted() {
        visits.asked.clear();
        picture();
        return visits.asked;
    }
    QAccessibleTableInterface& table() {
        return *QAccessible::queryAccessibleInterface(&view)->tableInterface();
    }

    Visits visits;
    OutlineSourceView view;
};

TEST_F(OutlineSourceViewTest, TitlesAndTextsAreThoseOfTheSource) {
    ASSERT_EQ(view.model()->columnCount(), 3);
    EXPECT_EQ(view.model()->headerData(0, Qt::Horizontal).toString(), "When");
    EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), "What");
    EXPECT_EQ(view.rowCount(), 1000);
    EXPECT_EQ(text(7, kDate), "Date 7");
    EXPECT_EQ(text(999, kPage), "Page 999");
    EXPECT_EQ(text(3, kDocument), "Document 3");
}

TEST_F(OutlineSourceViewTest, OnlyCellsOnTheScreenAreRequested) {
    view.verticalScrollBar()->setValue(300 * 30);
    std::set<std::pair<std::string, std::size_t>> expected;
    for (std::size_t row = 300; row <= 300 + static_cast<std::size_t>(view.viewport()->height() - 1) / 30;
         ++row)
        for (const char* column : {"Date", "Page"})
            expected.emplace(column, row);
    EXPECT_EQ(painted(), expected);
    header().showColumn(kDocument, 0, 100);
    EXPECT_TRUE(painted().contains({"Document", 300}));
}

TEST_F(OutlineSourceViewTest, TheOutlineColumnHasTheIconsWhereverItIs) {
    const auto colorsIn = [&](const QRect& area) {
        const QImage image = picture().copy(area);
        std::set<QRgb> colors;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                colors.insert(image.pixel(x, y));
        return colors.size();
    };
    const auto icon = [&] {
        return view.geometry().outlineCell(1, 1, visits.viewForTableColumn(kPage, 1, false)).icon;
    };
    EXPECT_TRUE(cell(1, kPage).contains(icon()));
    EXPECT_GT(colorsIn(icon()), 10U) << "the icon is painted";
    const QRect before = icon();
    header().setBefore(kPage, kDate, true);
    EXPECT_LT(icon().left(), before.left());
    EXPECT_TRUE(cell(1, kPage).contains(icon()));
    EXPECT_GT(colorsIn(icon()), 10U) << "the icon has moved with its column";
    EXPECT_EQ(colorsIn(cell(0, kPage).adjusted(60, 0, -60, -28)), 1U) << "the background is plain";
}

TEST_F(OutlineSourceViewTest, FoldersHaveATriangleAndOtherRowsAreIndented) {
    const auto paints = [&](int row) {
        const QRect triangle = view.geometry().outlineCell(row, 0, {}).triangle;
        const QImage image = picture().copy(triangle);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != image.pixel(0, 0))
                    return true;
        return false;
    };
    EXPECT_TRUE(paints(0));
    EXPECT_FALSE(paints(1));
    EXPECT_TRUE(paints(10));
}

TEST_F(OutlineSourceViewTest, CellsAreEditableWhereTheirContentSaysSo) {
    EXPECT_TRUE(index(2, kDocument).flags() & Qt::ItemIsEditable);
    EXPECT_FALSE(index(2, kPage).flags() & Qt::ItemIsEditable);
}

TEST_F(OutlineSourceViewTest, ToolTipsAreThoseOfTheSource) {
    const QPoint place = cell(4, kDate).center();
    QHelpEvent help(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
    QApplication::sendEvent(view.viewport(), &help);
    EXPECT_TRUE(QToolTip::text().contains("tip 4")) << QToolTip::text().toStdString();
}

TEST_F(OutlineSourceViewTest, ScreenReadersReadTheColumnsOfTheSource) {
    EXPECT_EQ(table().columnCount(), 2);
    EXPECT_EQ(table().columnDescription(0), "When");
    EXPECT_EQ(table().cellAt(20, 0)->role(), QAccessible::Cell);
    EXPECT_EQ(table().cellAt(20, 1)->role(), QAccessible::TreeItem);
    EXPECT_EQ(table().cellAt(20, 1)->text(QAccessible::Name), "Page 20");
    EXPECT_TRUE(table().cellAt(20, 1)->state().expanded);
    EXPECT_FALSE(table().cellAt(20, 0)->state().expandable);
    EXPECT_FALSE(table().cellAt(21, 1)->state().expandable);
    view.goToRow(20);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&view)->focusChild(), table().cellAt(20, 1));
    EXPECT_EQ(table().selectedRowCount(), 1);
}

TEST_F(OutlineSourceViewTest, RowsComeAndGoAsTheModelReports) {
    view.goToRow(5);
    view.rowModel().willInsert({0, 2});
    visits.count = 1002;
    view.rowModel().didInsert();
    EXPECT_EQ(view.rowCount(), 1002);
    EXPECT_EQ(view.selectedRowSet(), (RowSet{{7, 1}}));
    view.rowModel().willReload();
    visits.count = 3;
    view.rowModel().didReload();
    EXPECT_EQ(view.rowCount(), 3);
    EXPECT_TRUE(view.selectedRowSet().empty());
}

TEST_F(OutlineSourceViewTest, ADetachedViewRequestsNothing) {
    view.goToRow(1);
    QAccessibleInterface* part = table().cellAt(1, 1);
    view.detach();
    visits.asked.clear();
    EXPECT_EQ(view.rowCount(), 0);
    EXPECT_FALSE(part->isValid());
    EXPECT_EQ(table().columnCount(), 0);
    EXPECT_TRUE(painted().empty());
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(view.viewport(), &help);
    EXPECT_TRUE(visits.asked.empty());
}

} // namespace
} // namespace tabulon
