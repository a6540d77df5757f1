// The outline for screen readers: a tree of items with their row and column, their texts, and whether they
// are selected and expanded. The widget itself handles painting and keys.
#pragma once

#include "window/OutlineColumns.h"

#include <QAccessibleWidget>
#include <QHash>

namespace tabulon {

class OutlineSourceView;

/// Installs the factory by which Qt finds `OutlineAccessible` for every outline. Further calls have no
/// effect.
void installOutlineAccessibility();

/// Returns the index, among the children of `OutlineAccessible`, of a cell. Requires: the column is shown.
int accessibleChild(const OutlineSourceView& outline, int row, Column column);

/// The children are the titles of the columns that are shown, then the cells row by row. They are created
/// when they are requested.
class OutlineAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    /// Requires: `outline` outlives this object.
    explicit OutlineAccessible(OutlineSourceView* outline);
    ~OutlineAccessible() override;
    OutlineAccessible(const OutlineAccessible&) = delete;
    OutlineAccessible& operator=(const OutlineAccessible&) = delete;

    // QAccessibleInterface

    /// Returns the table interface of this object, or what the base class returns for another type.
    void* interface_cast(QAccessible::InterfaceType type) override;
    /// Returns the number of titles and cells, 0 after the outline was detached.
    int childCount() const override;
    /// Returns the title or cell, created if need be; `nullptr` for an index that is not below
    /// `childCount()`.
    QAccessibleInterface* child(int index) const override;
    /// Returns -1 for `nullptr`, for a part of another outline and for a part that is not valid.
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// Returns the cell at this place on the screen, in pixels. Returns `nullptr` where there is no cell, and
    /// for a title.
    QAccessibleInterface* childAt(int x, int y) const override;
    /// Returns the current row's cell in the outline column, or `nullptr`.
    QAccessibleInterface* focusChild() const override;

    // QAccessibleTableInterface. Columns count as they are shown, from left to right.

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    /// Returns the cell, or `nullptr` if there is no such row or column.
    QAccessibleInterface* cellAt(int row, int column) const override;
    /// Counts all selected rows, also those that are not on the screen.
    int selectedCellCount() const override;
    /// Returns the selected cells on the screen only, because all of them may be millions.
    QList<QAccessibleInterface*> selectedCells() const override;
    /// Returns the title of the column, empty if there is no such column.
    QString columnDescription(int column) const override;
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    /// Counts all selected rows, also those that are not on the screen. The time depends on the number of
    /// ranges that are selected, not on their rows.
    int selectedRowCount() const override;
    /// Returns the number of columns that are shown, 0 after the outline was detached.
    int columnCount() const override;
    /// Returns the number of rows, 0 after the outline was detached.
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    /// Returns the selected rows on the screen only.
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    /// Returns false also if there is no such row.
    bool isRowSelected(int row) const override;
    /// Selects the row alone, and makes it the current one. Returns false, and does nothing, if there is no
    /// such row.
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    /// Removes the row from the selection. Returns false, and does nothing, if it is not selected.
    bool unselectRow(int row) override;
    bool unselectColumn(int) override { return false; }
    /// Deletes the parts of rows that were inserted, removed or moved, and those of all rows after a reload.
    /// A change of texts deletes none, because a part reads its text when it is requested. Linear in the
    /// number of parts.
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    /// Returns the outline. Requires: it was not destroyed.
    OutlineSourceView* outline() const;
    /// Returns the smallest key of a row, or for row -1 that of the titles.
    qint64 firstKeyOf(qint64 row) const;
    /// Returns the key of a cell in `children_`, or for row -1 that of a title.
    qint64 keyOf(qint64 row, Column column) const;
    /// Returns the title of a column, created if need be.
    QAccessibleInterface* title(Column column) const;
    /// Returns a cell, created if need be.
    QAccessibleInterface* cell(int row, Column column) const;
    /// Registers a part, which Qt owns after that, and returns it.
    QAccessibleInterface* keep(qint64 key, QAccessibleInterface* made) const;
    /// Deletes the parts with this key and all higher ones.
    void forgetFrom(qint64 firstKey);

    mutable QHash<qint64, QAccessible::Id> children_; // by row and column, titles as row -1
};

} // namespace tabulon
