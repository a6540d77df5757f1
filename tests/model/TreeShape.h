// The shape of a tree: its structure without texts and codes.
#pragma once

#include "model/TreeWalk.h"

#include <cstddef>
#include <vector>

namespace tabulon::test {

/// Returns the number of children of each node in document order, beginning with `root`.
inline std::vector<std::size_t> shapeOf(const Bookmark& root) {
    std::vector<std::size_t> shape;
    const auto add = [&](const Bookmark& node) {
        shape.push_back(node.getChildren() ? node.getChildren()->size() : 0);
        return true;
    };
    add(root);
    walkBelow(root, add);
    return shape;
}

} // namespace tabulon::test
