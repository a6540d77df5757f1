// The nodes and the rows of a tree by their definition, from the links between the nodes alone. A reference
// for the code that walks trees and lays out rows, which these functions do not use.
#pragma once

#include "model/Bookmark.h"

#include <vector>

namespace tabulon {

/// Returns the node after `node` in document order, `nullptr` after the last one below `root`.
inline Bookmark* nextInTree(Bookmark& node, const Bookmark& root) {
    if (Bookmark* child = node.getChild())
        return child;
    for (Bookmark* each = &node; each != &root; each = each->getParent())
        if (Bookmark* sibling = each->nextBookmark())
            return sibling;
    return nullptr;
}

/// Returns all nodes below `root` in document order.
inline std::vector<Bookmark*> nodesOfTree(const Bookmark& root) {
    std::vector<Bookmark*> nodes;
    for (Bookmark* node = root.getChild(); node; node = nextInTree(*node, root))
        nodes.push_back(node);
    return nodes;
}

/// Returns whether each ancestor of `node` below `root` is an expanded folder. Requires: `node` is below
/// `root`.
inline bool hasRow(const Bookmark& node, const Bookmark& root) {
    for (const Bookmark* folder = node.getParent(); folder != &root; folder = folder->getParent())
        if (!folder->isFolder() || !folder->showHier())
            return false;
    return true;
}

/// Returns the nodes below `root` that have a row, in document order.
inline std::vector<Bookmark*> rowsOfTree(const Bookmark& root) {
    std::vector<Bookmark*> rows = nodesOfTree(root);
    std::erase_if(rows, [&](const Bookmark* node) { return !hasRow(*node, root); });
    return rows;
}

} // namespace tabulon
