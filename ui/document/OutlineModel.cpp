#include "ui/document/OutlineModel.h"

#include "ui/Strings.h"
#include "window/RowSource.h"

namespace tabulon {
namespace {

int firstOf(RowRange rows) {
    return static_cast<int>(rows.first);
}

int lastOf(RowRange rows) {
    return static_cast<int>(rows.first + rows.count) - 1;
}

} // namespace

OutlineModel::OutlineModel(const RowSource& source, OutlineColumns columns, QObject* parent)
    : QAbstractTableModel(parent), source_(source), columns_(std::move(columns)),
      rows_(static_cast<int>(source.numberOfRows())) {}

int OutlineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int OutlineModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant OutlineModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
        return oneLine(source_.viewForTableColumn(columnAt(index.column()), row, true).text.string.view());
    return {};
}

Qt::ItemFlags OutlineModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid())
        flags |= Qt::ItemIsDragEnabled;
    if (index.isValid() &&
        source_.viewForTableColumn(columnAt(index.column()), static_cast<std::size_t>(index.row()), true)
            .editable)
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant OutlineModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::DisplayRole)
        return toQString(columns_[static_cast<std::size_t>(section)].title);
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

void OutlineModel::didReload() {
    rows_ = static_cast<int>(source_.numberOfRows());
    endResetModel();
}

void OutlineModel::willInsert(RowRange rows) {
    changing_ = static_cast<int>(rows.count);
    beginInsertRows({}, firstOf(rows), lastOf(rows));
}

void OutlineModel::didInsert() {
    rows_ += changing_;
    endInsertRows();
}

void OutlineModel::willRemove(RowRange rows) {
    changing_ = static_cast<int>(rows.count);
    beginRemoveRows({}, firstOf(rows), lastOf(rows));
}

void OutlineModel::didRemove() {
    rows_ -= changing_;
    endRemoveRows();
}

void OutlineModel::didChange(RowRange rows) {
    emit dataChanged(index(firstOf(rows), 0), index(lastOf(rows), columnCount() - 1));
}

} // namespace tabulon
