#include "bench/ui/TreeModel.h"

#include "ui/Icons.h"
#include "ui/Strings.h"
#include "window/ShownAddress.h"

#include <QApplication>
#include <QPalette>

namespace tabulon::bench {
namespace {

int placeOf(const Bookmark& node) {
    return static_cast<int>(node.getParent()->getChildren()->indexOf(node));
}

} // namespace

Bookmark& TreeModel::nodeAt(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<Bookmark*>(index.internalPointer()) : root_;
}

QModelIndex TreeModel::indexOf(const Bookmark& node) const {
    return createIndex(placeOf(node), 0, &node);
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column < 0 || column > 1)
        return {};
    return createIndex(row, column, nodeAt(parent).getChildren()->at(static_cast<std::size_t>(row)));
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
    if (!index.isValid())
        return {};
    const Bookmark* above = nodeAt(index).getParent();
    return above == &root_ ? QModelIndex() : indexOf(*above);
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    const ChildList* children = parent.column() > 0 ? nullptr : nodeAt(parent).getChildren();
    return children ? static_cast<int>(children->size()) : 0;
}

bool TreeModel::hasChildren(const QModelIndex& parent) const {
    return parent.column() <= 0 && nodeAt(parent).hasChildren();
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    const Bookmark& node = nodeAt(index);
    const bool isName = index.column() == 0;
    switch (role) {
    case Qt::DisplayRole:
        return toQString(isName ? node.itemName().view() : shownAddressLine(node.itemURL()).view());
    case Qt::DecorationRole: {
        const std::string_view name = isName ? imageName(node.itemIcon()) : std::string_view();
        if (name.empty())
            return {};
        QIcon& kept = icons_[QByteArrayView(name.data(), static_cast<qsizetype>(name.size()))];
        if (kept.isNull())
            kept = iconNamed(name);
        return kept;
    }
    case Qt::ForegroundRole:
        return node.getLabel() == 0
                   ? QVariant()
                   : readableColor(node.getLabelColor(), QApplication::palette().color(QPalette::Base),
                                   QApplication::palette().color(QPalette::Text));
    case Qt::SizeHintRole:
        return QSize(0, rowHeight_);
    default:
        return {};
    }
}

void TreeModel::rename(Bookmark& node, const std::string& name) {
    node.setItemName(Text(name));
    const QModelIndex changed = indexOf(node);
    emit dataChanged(changed, changed, {Qt::DisplayRole});
}

void TreeModel::insert(Bookmark& folder, std::size_t index, Ref<Bookmark> item) {
    const int row = static_cast<int>(index);
    beginInsertRows(&folder == &root_ ? QModelIndex() : indexOf(folder), row, row);
    folder.insertChild(index, std::move(item));
    endInsertRows();
}

} // namespace tabulon::bench
