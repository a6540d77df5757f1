// The rows of an outline: the nodes below the root whose ancestors are all expanded, in document order. Row
// and node find each other quickly; showing and hiding a subtree is one operation on a range. Nothing here
// changes the tree.
#pragma once

#include "base/ChunkedList.h"
#include "model/Bookmark.h"

#include <optional>
#include <span>
#include <vector>

namespace tabulon {

/// True for a folder that is shown with its children.
inline bool isExpanded(const Bookmark& node) {
    return node.isFolder() && node.showHier();
}

/// The rows that follow `node` when it is shown and expanded: its children and, for those that are expanded,
/// theirs.
std::vector<Bookmark*> shownBelow(const Bookmark& node);

/// How many those are, without listing them.
std::size_t shownCountBelow(const Bookmark& node);

/// A node stands in the rows of one outline at a time. The rows keep their root alive, and with it every node
/// of the tree: a node that leaves the tree leaves the rows first.
class VisibleRows {
public:
    /// Shows the tree of `root`; the root itself is no row.
    void show(Ref<Bookmark> root);

    std::size_t size() const { return rows_.size(); }
    /// Requires row < size().
    Bookmark& at(std::size_t row) const { return *rows_.at(row); }
    /// Nothing for a node that has no row.
    std::optional<std::size_t> rowOf(const Bookmark& node) const;

    void insert(std::size_t row, std::span<Bookmark* const> nodes) { rows_.insertRange(row, nodes); }
    void erase(std::size_t row, std::size_t count) { rows_.eraseRange(row, count); }

private:
    Ref<Bookmark> root_;
    ChunkedList<Bookmark, RowLink> rows_;
};

} // namespace tabulon
