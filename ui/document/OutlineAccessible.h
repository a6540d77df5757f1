// What screen readers are told of the outline: a tree of items that know their row and column, their texts
// and whether they are selected and expanded. How the outline looks and what keys do is the widget's.
#pragma once

#include "window/CellContent.h"

#include <QAccessibleWidget>
#include <QHash>

namespace tabulon {

class OutlineWidget;

/// Lets Qt find `OutlineAccessible` for every outline; once is enough, more does no harm.
void installOutlineAccessibility();

/// The number, among the children that `OutlineAccessible` reports, of a cell in a column that is shown.
int accessibleChild(const OutlineWidget& outline, int row, Column column);

/// The children are the titles of the columns shown, then the cells row by row, made as they are asked for.
class OutlineAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit OutlineAccessible(OutlineWidget* outline);
    ~OutlineAccessible() override;
    OutlineAccessible(const OutlineAccessible&) = delete;
    OutlineAccessible& operator=(const OutlineAccessible&) = delete;

    // QAccessibleInterface

    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

    // QAccessibleTableInterface. Columns count as they are shown, from left to right.

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    /// Those on the screen: all of them may be millions.
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int) const override { return {}; }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    /// Those on the screen.
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int row) override;
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

private:
    OutlineWidget* outline() const;
    QAccessibleInterface* title(Column column) const;
    QAccessibleInterface* cell(int row, Column column) const;
    QAccessibleInterface* keep(qint64 key, QAccessibleInterface* made) const;
    void forgetFrom(qint64 firstKey);

    mutable QHash<qint64, QAccessible::Id> children_; // by row and column, titles as row -1
};

} // namespace tabulon
