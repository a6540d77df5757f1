#include "ui/versions/DifferencesModel.h"

#include "app/VersionsController.h"
#include "ui/Strings.h"
#include "window/ShownAddress.h"

namespace tabulon {
namespace {

enum DifferenceColumn { kNameColumn, kWhatColumn, kAddressColumn, kColumnCount };

} // namespace

DifferencesModel::DifferencesModel(const VersionsController& controller, QObject* parent)
    : QAbstractTableModel(parent), controller_(controller) {}

void DifferencesModel::reload() {
    beginResetModel();
    checked_.clear();
    for (const TreeDifference& difference : controller_.differences())
        checked_.push_back(difference.isRemoved());
    endResetModel();
}

std::vector<std::size_t> DifferencesModel::checkedRows() const {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < checked_.size(); ++row)
        if (checked_[row])
            rows.push_back(row);
    return rows;
}

int DifferencesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(checked_.size());
}

int DifferencesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant DifferencesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static constexpr const char* kKeys[] = {"Name", "DifferenceColumn", "URL"};
    return toQString(controller_.texts().text(kKeys[section]));
}

QString DifferencesModel::textOf(const QModelIndex& index) const {
    const TreeDifference& difference = controller_.differences()[static_cast<std::size_t>(index.row())];
    const Bookmark& node = difference.after ? *difference.after : *difference.before;
    switch (index.column()) {
    case kNameColumn:
        return node.isSeparator() ? toQString(controller_.texts().text("Separator"))
                                  : oneLine(node.itemName().view());
    case kWhatColumn:
        return oneLine(controller_.differenceText(difference));
    default:
        return oneLine(shownAddressLine(node.itemURL()).view());
    }
}

QVariant DifferencesModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= checked_.size())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return textOf(index);
    const bool hasBox =
        index.column() == kNameColumn && VersionsController::canPutBack(controller_.differences()[row]);
    if (role == Qt::CheckStateRole && hasBox)
        return checked_[row] ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool DifferencesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable))
        return false;
    checked_[static_cast<std::size_t>(index.row())] = value.toInt() == Qt::Checked;
    emit dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

Qt::ItemFlags DifferencesModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const TreeDifference& difference = controller_.differences()[static_cast<std::size_t>(index.row())];
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    if (index.column() == kNameColumn && VersionsController::canPutBack(difference))
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

} // namespace tabulon
