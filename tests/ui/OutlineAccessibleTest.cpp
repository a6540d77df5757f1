// The names, states and events that the outline reports to screen readers.
#include "ui/document/OutlineAccessible.h"

#include "tests/ui/OutlineFixture.h"

#include <QApplication>

namespace tabulon {
namespace {

class OutlineAccessibleTest : public OutlineTest {
protected:
    void SetUp() override {
        outer = &add(makeFolder("outer", false));
        add(makeLink("inside", "https://inside.example/"), outer);
        add(makeSeparator());
        Bookmark& noted = add(makeLink("noted", "https://noted.example/"));
        noted.setItemNote("the note");
        noted.setLabel(2);
        openWidget();
    }

    QAccessibleInterface* tree() { return QAccessible::queryAccessibleInterface(&widget()); }
    QAccessibleTableInterface* table() { return tree()->tableInterface(); }
    QAccessibleInterface* cellOf(int row, int column) { return table()->cellAt(row, column); }
    static QString name(QAccessibleInterface* part) { return part->text(QAccessible::Name); }

    Bookmark* outer = nullptr;
};

TEST_F(OutlineAccessibleTest, OutlineIsATreeOfRowsAndColumns) {
    EXPECT_EQ(tree()->role(), QAccessible::Tree);
    EXPECT_EQ(table()->rowCount(), 3);
    EXPECT_EQ(table()->columnCount(), 2);
    EXPECT_EQ(tree()->childCount(), 8) << "two titles and six cells";
    EXPECT_EQ(tree()->child(0)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(name(tree()->child(1)), "URL");
    EXPECT_EQ(table()->columnDescription(0), "Name");
    EXPECT_EQ(tree()->child(8), nullptr);
    EXPECT_EQ(tree()->child(-1), nullptr);
    EXPECT_EQ(cellOf(3, 0), nullptr);
}

TEST_F(OutlineAccessibleTest, CellsHaveTextsNotesAndPlaces) {
    QAccessibleInterface* noted = cellOf(2, 0);
    EXPECT_EQ(noted->role(), QAccessible::TreeItem);
    EXPECT_EQ(name(noted), "noted");
    EXPECT_EQ(noted->text(QAccessible::Description), "the note");
    EXPECT_EQ(name(cellOf(2, 1)), "https://noted.example/");
    EXPECT_EQ(cellOf(1, 0)->role(), QAccessible::Separator);
    EXPECT_EQ(noted->tableCellInterface()->rowIndex(), 2);
    EXPECT_EQ(noted->tableCellInterface()->columnIndex(), 0);
    EXPECT_EQ(noted->tableCellInterface()->columnHeaderCells(), QList{tree()->child(0)});
    EXPECT_EQ(noted->parent(), tree());
    const QPoint corner = widget().viewport()->mapToGlobal(cell(2, Column::Name).topLeft());
    EXPECT_EQ(noted->rect(), QRect(corner, cell(2, Column::Name).size()));
    EXPECT_EQ(tree()->childAt(corner.x() + 1, corner.y() + 1), noted);
}

TEST_F(OutlineAccessibleTest, EveryChildIsFoundAgainByItsNumber) {
    controller->table().addTagsColumn();
    EXPECT_EQ(tree()->childCount(), 12);
    for (int i = 0; i < tree()->childCount(); ++i) {
        EXPECT_EQ(tree()->indexOfChild(tree()->child(i)), i);
        EXPECT_TRUE(tree()->child(i)->isValid());
    }
    EXPECT_EQ(name(tree()->child(1)), "Tags") << "columns stand as they are shown";
    QAccessibleInterface* tags = cellOf(0, 1);
    controller->table().removeTagsColumn();
    EXPECT_FALSE(tags->isValid());
    EXPECT_EQ(name(tags), "");
}

TEST_F(OutlineAccessibleTest, FoldersShowWhetherTheyAreExpandedAndTurnByAction) {
    QAccessibleInterface* folder = cellOf(0, 0);
    EXPECT_TRUE(folder->state().expandable);
    EXPECT_TRUE(folder->state().collapsed);
    EXPECT_FALSE(cellOf(2, 0)->state().expandable);
    folder->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(outer->showHier());
    EXPECT_TRUE(folder->isValid()) << "it stands above the change";
    EXPECT_TRUE(folder->state().expanded);
    EXPECT_EQ(name(cellOf(1, 0)), "inside");
    EXPECT_FALSE(
        cellOf(1, 0)->actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));
}

TEST_F(OutlineAccessibleTest, CellsBelowAChangeAreAskedForAnew) {
    EXPECT_EQ(name(cellOf(2, 0)), "noted");
    controller->outline().expandItem(*outer);
    EXPECT_EQ(name(cellOf(3, 0)), "noted");
    EXPECT_TRUE(cellOf(2, 0)->role() == QAccessible::Separator);
    controller->expanding().collapseAll();
    EXPECT_EQ(name(cellOf(2, 0)), "noted");
    EXPECT_EQ(cellOf(3, 0), nullptr);
}

TEST_F(OutlineAccessibleTest, PartsAboveAChangeAreKeptAndThoseBelowAreMadeAnew) {
    using Change = QAccessibleTableModelChangeEvent;
    const auto idOf = [](QAccessibleInterface* part) { return QAccessible::uniqueId(part); };
    const auto title = idOf(tree()->child(0));
    const auto above = idOf(cellOf(0, 1));
    const auto below = idOf(cellOf(1, 0));
    Change inserted(&widget(), Change::RowsInserted);
    inserted.setFirstRow(1);
    table()->modelChange(&inserted);
    EXPECT_EQ(idOf(cellOf(0, 1)), above);
    EXPECT_EQ(QAccessible::accessibleInterface(below), nullptr);
    Change reset(&widget(), Change::ModelReset);
    table()->modelChange(&reset);
    EXPECT_EQ(QAccessible::accessibleInterface(above), nullptr);
    EXPECT_EQ(idOf(tree()->child(0)), title);
}

TEST_F(OutlineAccessibleTest, KeysMoveFocusAndSelection) {
    widget().activateWindow();
    widget().setFocus();
    press(Qt::Key_End);
    EXPECT_TRUE(cellOf(2, 0)->state().selected);
    EXPECT_TRUE(cellOf(2, 1)->state().selected);
    EXPECT_EQ(tree()->focusChild(), cellOf(2, 0));
    press(Qt::Key_Home);
    EXPECT_EQ(table()->selectedRows(), QList<int>{0});
    EXPECT_EQ(table()->selectedCellCount(), 2);
}

TEST_F(OutlineAccessibleTest, ScreenReaderSelectsAndUnselectsRows) {
    EXPECT_TRUE(table()->selectRow(2));
    EXPECT_EQ(widget().selectedRows(), (RowSet{{2, 1}}));
    EXPECT_FALSE(table()->selectRow(3));
    EXPECT_FALSE(table()->unselectRow(0));
    EXPECT_TRUE(table()->unselectRow(2));
    EXPECT_FALSE(widget().selectedRow());
    cellOf(1, 0)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(widget().selectedRow(), 1u);
}

TEST_F(OutlineAccessibleTest, OfManySelectedRowsThoseOnTheScreenAreListed) {
    closeWidget();
    for (int i = 0; i < 100000; ++i)
        add(makeLink("link"));
    openWidget();
    widget().selectAll();
    EXPECT_EQ(table()->selectedRowCount(), 100003);
    EXPECT_LT(table()->selectedRows().size(), 100);
    EXPECT_LT(table()->selectedCells().size(), 200);
    EXPECT_TRUE(cellOf(100002, 0)->state().offscreen);
}

TEST_F(OutlineAccessibleTest, DetachedOutlineIsEmptyAndItsCellsSayNothing) {
    QAccessibleInterface* noted = cellOf(2, 0);
    tester.reset();
    widget().detach();
    EXPECT_EQ(tree()->childCount(), 0);
    EXPECT_FALSE(noted->isValid());
    EXPECT_TRUE(noted->state().invalid);
    EXPECT_EQ(name(noted), "");
    EXPECT_TRUE(noted->rect().isEmpty());
    EXPECT_TRUE(noted->actionInterface()->actionNames().isEmpty());
    EXPECT_EQ(table()->selectedRowCount(), 0);
}

} // namespace
} // namespace tabulon
