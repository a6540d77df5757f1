// The rows of the list of differences: a check box and the item's name, what changed, and its address.
#pragma once

#include <QAbstractTableModel>

#include <vector>

namespace tabulon {

class VersionsController;

class DifferencesModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The controller must live longer.
    DifferencesModel(const VersionsController& controller, QObject* parent);

    /// The controller's differences are others now. Those that can be put back and were removed are checked.
    void reload();
    /// The checked rows, in ascending order.
    std::vector<std::size_t> checkedRows() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QString textOf(const QModelIndex& index) const;

    const VersionsController& controller_;
    std::vector<bool> checked_;
};

} // namespace tabulon
