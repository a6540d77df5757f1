// The rows of a source as a flat table, with all columns, whether they are shown or not. The depth of a row
// is not in the model; the view asks the source for it. A table of this size stays fast, unlike a tree of
// indexes.
#pragma once

#include "window/OutlineColumns.h"
#include "window/OutlineView.h"

#include <QAbstractTableModel>

namespace tabulon {

class RowSource;

/// Returns texts for accessibility, copying and Qt's own use. Cells are painted from CellContent.
class OutlineModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// `columns` are those of the source. Requires: the source exists while a view shows this model.
    OutlineModel(const RowSource& source, OutlineColumns columns, QObject* parent);

    /// Returns the number of rows, which changes with the `did` functions below.
    int rowCount(const QModelIndex& parent = {}) const override;
    /// Returns the number of columns, shown or not.
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Returns the text of a cell in one line, for display and for accessibility.
    QVariant data(const QModelIndex& index, int role) const override;
    /// Every cell can be dragged. A cell can be edited where its content says so.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Returns the title of a column and its alignment.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Changes of the rows, called by the view as OutlineView reports them.

    /// Called before all rows are replaced.
    void willReload() { beginResetModel(); }
    /// Called after all rows were replaced.
    void didReload();
    /// Called before these rows are inserted.
    void willInsert(RowRange rows);
    /// Called after the rows were inserted.
    void didInsert();
    /// Called before these rows are removed.
    void willRemove(RowRange rows);
    /// Called after the rows were removed.
    void didRemove();
    /// Reports that the content of these rows has changed.
    void didChange(RowRange rows);

private:
    /// Returns the column of a section.
    Column columnAt(int section) const { return columns_[static_cast<std::size_t>(section)].identifier; }

    const RowSource& source_;
    const OutlineColumns columns_;
    /// The number of rows that Qt knows of. It differs from the source's during a change.
    int rows_ = 0;
    /// The number of rows of the change that has begun.
    int changing_ = 0;
};

} // namespace tabulon
