// The traversal of a tree, depth first and without recursion, for trees of any depth.
#pragma once

#include "model/Bookmark.h"

#include <vector>

namespace tabulon {

/// Calls `enter(node)` for every node below `root` in document order. The children of a node are visited only
/// if `enter` returns true for it. `leave(node)` is called after the children of each node for which `enter`
/// has returned true and which has a child list, even an empty one. The children of `root` are always
/// visited; `root` itself is not. Linear; the memory is linear in the depth. Requires: the callbacks neither
/// change a list of children that is being walked nor destroy a node of the tree. They may change all other
/// fields, walk another tree, and throw.
template <class Enter, class Leave>
void walkBelow(const Bookmark& root, Enter enter, Leave leave) {
    struct Level {
        Bookmark* node; // nullptr for `root`, which is not left
        ChildList::iterator next;
        ChildList::iterator end;
    };
    std::vector<Level> levels;
    if (const ChildList* list = root.getChildren())
        levels.push_back({nullptr, list->begin(), list->end()});
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.end) {
            Bookmark* done = level.node;
            levels.pop_back();
            if (done)
                leave(*done);
            continue;
        }
        Bookmark* node = *level.next;
        ++level.next;
        const ChildList* list = enter(*node) ? node->getChildren() : nullptr;
        if (list)
            levels.push_back({node, list->begin(), list->end()});
    }
}

/// Calls `enter(node)` for every node below `root` under the same rules, without a callback after the
/// children of a node.
template <class Enter>
void walkBelow(const Bookmark& root, Enter enter) {
    walkBelow(root, enter, [](Bookmark&) {});
}

/// Prefetches the texts of a node that will be read soon, because walks over many nodes spend most of their
/// time waiting for memory. Does not read the texts. To be called some nodes before they are read.
inline void prefetchTexts(const Bookmark& node) {
    for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
        if (!text->isNull())
            text->prefetch();
}

/// Returns true if `node` is `root` or below it, by the parents and their lists of children. The lists are
/// necessary because a node that was removed from its parent's list keeps its parent. Linear in the depth of
/// `node`, in lists that share no nodes. Requires: each parent on the way exists or is
/// nullptr, also that of a removed node.
inline bool isInTree(const Bookmark& node, const Bookmark& root) {
    const Bookmark* each = &node;
    while (each != &root) {
        const Bookmark* parent = each->getParent();
        if (!parent || !parent->getChildren() || !parent->getChildren()->contains(*each))
            return false;
        each = parent;
    }
    return true;
}

} // namespace tabulon
