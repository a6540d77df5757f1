// The parts of the outline for screen readers: the titles of its columns and its cells.
#pragma once

#include "ui/document/OutlineSourceView.h"
#include "window/RowSource.h"

#include <QAccessible>
#include <QPointer>

namespace tabulon {

/// What titles and cells have in common: they have no children and cannot be changed. A part may outlive its
/// row or column. It is not valid then, and its texts are empty.
class OutlinePart : public QAccessibleInterface {
public:
    /// `outline` is not owned, and may be destroyed before this object.
    OutlinePart(OutlineSourceView* outline, Column column) : outline_(outline), column_(column) {}

    /// Returns the column of the part.
    Column column() const { return column_; }

    /// Returns `nullptr`: a part is not a QObject.
    QObject* object() const override { return nullptr; }
    /// Returns the outline, or `nullptr` if it was destroyed.
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(outline_); }
    /// A part has no children.
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    /// Does nothing: texts are edited in fields only.
    void setText(QAccessible::Text, const QString&) override {}

protected:
    /// Returns whether the outline exists, is attached to its source and shows the column. Linear in the
    /// number of columns.
    bool isColumnShown() const;
    /// Returns the number of shown columns to the left of this one; the number of all shown columns if this
    /// one is hidden. Requires: the outline exists.
    int place() const;
    /// Returns the number of the column in the model and the header. Requires: the outline exists.
    int section() const;

    /// `nullptr` after the outline was destroyed.
    const QPointer<OutlineSourceView> outline_;

private:
    const Column column_;
};

/// The title of a column. It is valid while the column is shown and the outline is attached to its
/// source.
class OutlineTitle : public OutlinePart {
public:
    using OutlinePart::OutlinePart;

    bool isValid() const override { return isColumnShown(); }
    /// A title has no state: it cannot be selected or focused.
    QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    QAccessible::State state() const override { return {}; }
    /// Returns the title as its name; empty for any other kind.
    QString text(QAccessible::Text kind) const override;
    /// Returns the place on the screen in pixels; empty if the title is not valid.
    QRect rect() const override;
};

/// A cell. The cell in the outline column also represents the row: it can be expanded and collapsed, and its
/// description is the tool tip of the indicator beside the text.
class OutlineCell : public OutlinePart,
                    public QAccessibleTableCellInterface,
                    public QAccessibleActionInterface {
public:
    /// Creates the cell of this row and column, which need not exist. `outline` is not owned.
    OutlineCell(OutlineSourceView* outline, int row, Column column);

    /// Returns whether the column is shown and the outline has the row.
    bool isValid() const override;
    /// Returns the interface of cells or of actions of this object, or `nullptr` for another type.
    void* interface_cast(QAccessible::InterfaceType type) override;
    /// Returns TreeItem for the outline column, Separator for that of a separator, else Cell.
    QAccessible::Role role() const override;
    /// Returns the state of the row, with `invalid` if the cell is not valid.
    QAccessible::State state() const override;
    /// Returns the text as its name, in one line, and the indicator's tool tip as its description. Empty for
    /// any other kind.
    QString text(QAccessible::Text kind) const override;
    /// Returns the place on the screen in pixels, visible or not; empty if the cell is not valid.
    QRect rect() const override;

    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    /// Returns the title of the column, empty if the cell is not valid. The titles are not owned by the
    /// caller.
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    /// Returns the number of shown columns to the left. Requires: the outline exists.
    int columnIndex() const override { return place(); }
    int rowIndex() const override { return row_; }
    /// Returns whether the row is selected; false if the cell is not valid.
    bool isSelected() const override;
    /// Returns the outline, or `nullptr` if it was destroyed.
    QAccessibleInterface* table() const override { return parent(); }

    /// Returns the actions of the cell: toggling expands and collapses a folder, focusing selects the row
    /// alone. Empty if the cell is not valid.
    QStringList actionNames() const override;
    /// Runs the action. Does nothing for a name that is not in `actionNames()`.
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    /// Returns the cell's index in the model. Requires: isValid().
    QModelIndex index() const;
    /// Returns what the cell shows. Requires: isValid().
    CellContent content() const;
    /// Returns the triangle of the cell, none in another column than the outline column. Requires: isValid().
    TreePlace tree() const;

    /// The number of the row when the cell was created. It does not follow the row.
    const int row_;
    /// Whether the cell represents the row.
    const bool inOutlineColumn_;
};

} // namespace tabulon
