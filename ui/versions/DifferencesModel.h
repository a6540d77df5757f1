// The rows of the list of differences: a check box and the item's name, what has changed, and its address.
#pragma once

#include <QAbstractTableModel>

#include <vector>

namespace tabulon {

class VersionsController;

/// The model of the list. Its rows are the controller's differences.
class DifferencesModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// Requires: the controller outlives this object.
    DifferencesModel(const VersionsController& controller, QObject* parent);

    /// Reads the controller's differences again. Items that were removed since the version are checked, and
    /// no others.
    void reload();
    /// Returns the checked rows in ascending order. Linear in the number of rows.
    std::vector<std::size_t> checkedRows() const;

    /// Returns the number of differences when `reload` was called last.
    int rowCount(const QModelIndex& parent = {}) const override;
    /// Returns 3, or 0 below a row: rows have no children.
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Returns the title of a column. Empty for rows and for other roles than the displayed text. Requires:
    /// the column exists.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Returns the texts of a row, and the state of its check box if it can be put back. The tool tip is the
    /// text of the cell. Empty for other roles and for a row that does not exist.
    QVariant data(const QModelIndex& index, int role) const override;
    /// Sets the check box of a row. Returns false for everything else. Emits `dataChanged` for the cell.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    /// Only the first cell of a difference that can be put back has a check box.
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    /// Returns the text of a cell.
    QString textOf(const QModelIndex& index) const;

    const VersionsController& controller_;
    /// The state of the check box, by row.
    std::vector<bool> checked_;
};

} // namespace tabulon
