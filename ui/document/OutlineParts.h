// The parts of the outline for screen readers: the titles of its columns and its cells.
#pragma once

#include "ui/document/OutlineWidget.h"
#include "window/CellContent.h"

#include <QAccessible>
#include <QPointer>

namespace tabulon {

class Bookmark;

/// What titles and cells have in common: they have no children and cannot be changed. A part may outlive its
/// row or column. It is not valid then, and its texts are empty.
class OutlinePart : public QAccessibleInterface {
public:
    /// `outline` is not owned, and may be destroyed before this object.
    OutlinePart(OutlineWidget* outline, Column column) : outline_(outline), column_(column) {}

    /// Returns the column of the part.
    Column column() const { return column_; }

    QObject* object() const override { return nullptr; }
    /// Returns the outline, or `nullptr` if it was destroyed.
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(outline_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}

protected:
    /// Returns whether the outline exists and shows the column.
    bool isColumnShown() const;
    /// Returns the number of shown columns to the left of this one.
    int place() const;
    /// Returns the number of the column in the model and the header. Requires: the outline exists.
    int section() const;

    const QPointer<OutlineWidget> outline_;

private:
    const Column column_;
};

/// The title of a column. It is valid while the column is shown.
class OutlineTitle : public OutlinePart {
public:
    using OutlinePart::OutlinePart;

    bool isValid() const override { return isColumnShown(); }
    QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    QAccessible::State state() const override { return {}; }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
};

/// A cell. The cell in the Name column also represents the row: it can be expanded and collapsed, and its
/// description is the tool tip of the indicator beside the name.
class OutlineCell : public OutlinePart,
                    public QAccessibleTableCellInterface,
                    public QAccessibleActionInterface {
public:
    /// Creates the cell of this row and column.
    OutlineCell(OutlineWidget* outline, int row, Column column) : OutlinePart(outline, column), row_(row) {}

    bool isValid() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;
    /// Returns TreeItem for the Name column, Separator for that of a separator, else Cell.
    QAccessible::Role role() const override;
    /// Returns the state of the row, with `invalid` if the cell is not valid.
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;

    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return place(); }
    int rowIndex() const override { return row_; }
    bool isSelected() const override;
    QAccessibleInterface* table() const override { return parent(); }

    /// Returns the actions of the cell: toggling expands and collapses a folder, focusing selects the row
    /// alone.
    QStringList actionNames() const override;
    /// Does nothing for a name that is not in `actionNames()`.
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QModelIndex index() const;
    /// Returns what the cell shows. Requires: isValid().
    CellContent content() const;
    /// Returns the node of the row. Requires: isValid().
    const Bookmark& item() const;
    /// Returns whether the cell represents a folder's row. Requires: isValid().
    bool isFolder() const;

    const int row_;
};

} // namespace tabulon
