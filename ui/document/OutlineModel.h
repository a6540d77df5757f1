// The controller's rows as a flat table: one row a visible node, one column each for name, URL and tags,
// whether the tags are shown or not. How deep a row stands is asked of the controller by whoever paints it; a
// table stays quick where a tree of indexes would not.
#pragma once

#include "window/CellContent.h"
#include "window/OutlineView.h"

#include <QAbstractTableModel>

namespace tabulon {

class ViewController;

/// Gives texts for accessibility, copying and Qt's own needs; cells are painted from the controller's
/// CellContent.
class OutlineModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The controller must live longer. `columnTitles` are in the order of Column.
    OutlineModel(ViewController& controller, QStringList columnTitles, QObject* parent);

    static Column columnAt(int section) { return static_cast<Column>(section); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // The changes that OutlineView reports.

    void willReload() { beginResetModel(); }
    void didReload();
    void willInsert(RowRange rows);
    void didInsert();
    void willRemove(RowRange rows);
    void didRemove();
    void didChange(RowRange rows);

private:
    ViewController& controller_;
    const QStringList columnTitles_;
    int rows_ = 0;
    int changing_ = 0;
};

} // namespace tabulon
