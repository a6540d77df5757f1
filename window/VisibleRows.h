// The rows of an outline: the nodes below the root whose ancestors are all expanded, in document order. A
// row's node and a node's row are found without a search through the rows. A subtree is shown or hidden by
// one operation on a range of rows. The tree is not changed here.
#pragma once

#include "base/ChunkedList.h"
#include "model/Bookmark.h"

#include <optional>
#include <span>
#include <vector>

namespace tabulon {

/// Returns whether the node is a folder that is shown with its children.
inline bool isExpanded(const Bookmark& node) {
    return node.isFolder() && node.showHier();
}

/// Returns the rows that follow `node` when it has a row and is expanded: its children and, below those that
/// are expanded, theirs.
std::vector<Bookmark*> shownBelow(const Bookmark& node);

/// Returns the number of these rows without listing them. The time is linear in that number.
std::size_t shownCountBelow(const Bookmark& node);

/// The rows of one outline. A node may be in the rows of one outline at a time. The rows keep their root
/// alive, and with it every node of the tree. Requires: a node is removed from the rows before it is removed
/// from the tree.
class VisibleRows {
public:
    /// Replaces all rows by those of the tree of `root`. The root itself has no row.
    void show(Ref<Bookmark> root);

    /// Returns the number of rows.
    std::size_t size() const { return rows_.size(); }
    /// Returns the node of a row. Requires: row < size().
    Bookmark& at(std::size_t row) const { return *rows_.at(row); }
    /// Returns the row of the node, or `nullopt` if it has none.
    std::optional<std::size_t> rowOf(const Bookmark& node) const;

    /// Inserts rows before `row`, or at the end if row == size().
    void insert(std::size_t row, std::span<Bookmark* const> nodes) { rows_.insertRange(row, nodes); }
    /// Removes `count` rows from `row` on.
    void erase(std::size_t row, std::size_t count) { rows_.eraseRange(row, count); }

private:
    Ref<Bookmark> root_;
    ChunkedList<Bookmark, RowLink> rows_;
};

} // namespace tabulon
