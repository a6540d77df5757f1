// The two views of a tree that are compared: the program's own outline, and QTreeView over a model of the
// same tree. Both show the same columns in the same width, rows of the same height and the same icons.
#pragma once

#include "model/Bookmark.h"

#include <QAbstractItemView>

#include <memory>
#include <string>

namespace tabulon::bench {

/// A view of a tree. Its functions only change the contents and the state of the view; the caller makes the
/// view paint.
class MeasuredView {
public:
    virtual ~MeasuredView() = default;

    /// Returns the view, which is shown when it is created. It is scrolled by pixels.
    virtual QAbstractItemView& widget() = 0;
    /// Expands every folder.
    virtual void expandAll() = 0;
    /// Scrolls so that the node can be seen, and selects it. Requires: the node has a row.
    virtual void show(Bookmark& node) = 0;
    /// Sets the name of a node.
    virtual void rename(Bookmark& node, const std::string& name) = 0;
    /// Inserts `item`, which is in no tree, as the child of `folder` with that index.
    virtual void insert(Bookmark& folder, std::size_t index, Ref<Bookmark> item) = 0;

    /// The height of every row, in pixels.
    static constexpr int kRowHeight = 23;
};

/// Returns the program's outline, of a document whose tree is `root`.
std::unique_ptr<MeasuredView> makeOwnView(Bookmark& root);

/// Returns a QTreeView with rows of one height. Requires: `root` outlives it.
std::unique_ptr<MeasuredView> makeTreeView(Bookmark& root);

} // namespace tabulon::bench
