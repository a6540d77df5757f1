// A bookmark tree as an item model for QTreeView, with the contents of the program's own outline: the
// reference that the outline is measured against.
#pragma once

#include "model/Bookmark.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>

#include <string>

namespace tabulon::bench {

/// Two columns, Name and URL, over a tree. The internal pointer of an index is its node. Every function runs
/// in constant time, except `index` and the signals of Qt.
class TreeModel : public QAbstractItemModel {
public:
    /// Every row is `rowHeight` pixels high. Requires: `root` outlives this object.
    TreeModel(Bookmark& root, int rowHeight) : root_(root), rowHeight_(rowHeight) {}

    /// Returns the index of the node's cell in column 0. Requires: the node is below the root.
    QModelIndex indexOf(const Bookmark& node) const;
    /// Sets the name and emits `dataChanged`.
    void rename(Bookmark& node, const std::string& name);
    /// Inserts `item`, which is in no tree, as the child of `folder` with that index.
    void insert(Bookmark& folder, std::size_t index, Ref<Bookmark> item);

    /// Runs in time logarithmic in the number of chunks of the child list (ChunkedList::at).
    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex&) const override { return 2; }
    bool hasChildren(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    /// Returns the node of an index, the root for an invalid one.
    Bookmark& nodeAt(const QModelIndex& index) const;

    Bookmark& root_;
    const int rowHeight_;
    mutable QHash<QByteArrayView, QIcon> icons_; // by names, which are static
};

} // namespace tabulon::bench
