// The one way to walk a tree: depth first in child order, without recursion, whatever the depth.
#pragma once

#include "model/Bookmark.h"

#include <vector>

namespace tabulon {

/// Calls `enter(node)` for every node below `root` in document order; the children of a node follow when
/// `enter` gave true for it. `leave(node)` is called after the children of each entered node that gave true
/// and has a child list. The tree must not change during the walk.
template <class Enter, class Leave>
void walkBelow(const Bookmark& root, Enter enter, Leave leave) {
    struct Level {
        Bookmark* node;
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

template <class Enter>
void walkBelow(const Bookmark& root, Enter enter) {
    walkBelow(root, enter, [](Bookmark&) {});
}

/// Asks for the texts of a node that is looked at a little later: walks over many nodes wait for memory most
/// of the time.
inline void prefetchTexts(const Bookmark& node) {
    for (const Text* text : {&node.itemName(), &node.itemURL(), &node.itemNote(), &node.itemTags()})
        if (!text->isNull())
            text->prefetch();
}

/// Whether the node is `root` or stands below it. A node that has left its parent's list still points there,
/// and so does what is below it.
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
