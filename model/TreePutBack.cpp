#include "model/TreePutBack.h"

#include "model/TreeWalk.h"

namespace tabulon {
namespace {

class PuttingBack {
public:
    PuttingBack(std::span<const TreeDifference> chosen, const TreeComparison& comparison,
                const Bookmark& before, Bookmark& after)
        : comparison_(comparison), before_(before), after_(after) {
        for (const TreeDifference& difference : chosen)
            if (difference.before)
                chosen_.emplace(difference.before, &difference);
    }

    // In the order of the tree before, so that the folder and the items before an item are restored before
    // it.
    std::size_t run() {
        const Bookmark* previous = nullptr;
        const Bookmark* parent = &before_;
        std::vector<const Bookmark*> previousOfLevels;
        walkBelow(
            before_,
            [&](Bookmark& node) {
                putBackNode(node, previous, *parent);
                previousOfLevels.push_back(&node);
                previous = nullptr;
                parent = &node;
                if (node.getChildren())
                    return true;
                leave(previousOfLevels, previous, parent);
                return true;
            },
            [&](Bookmark&) { leave(previousOfLevels, previous, parent); });
        return count_;
    }

private:
    static void leave(std::vector<const Bookmark*>& levels, const Bookmark*& previous,
                      const Bookmark*& parent) {
        previous = levels.back();
        parent = previous->getParent();
        levels.pop_back();
    }

    void putBackNode(Bookmark& node, const Bookmark* previous, const Bookmark& parent) {
        if (!partnerOf(node)) {
            const bool isChosen = chosen_.contains(&node) || restored_.contains(&parent);
            if (isChosen)
                restore(node, previous);
            return;
        }
        const auto found = chosen_.find(&node);
        if (found == chosen_.end())
            return;
        Bookmark& live = *partnerOf(node);
        if (found->second->renamed || found->second->edited != 0) {
            live.setWithBookmark(node);
            live.setAutoTab(node.getAutoTab());
            live.setItemIcon(node.itemIcon()); // that of the type, which was copied
        }
        if (found->second->moved)
            moveBack(live, node, previous);
        ++count_;
    }

    Bookmark* partnerOf(const Bookmark& node) const {
        if (&node == &before_)
            return &after_;
        const auto found = restored_.find(&node);
        return found == restored_.end() ? comparison_.partnerOf(node) : found->second;
    }

    Bookmark& folderFor(const Bookmark& node) const {
        const Bookmark* folder = node.getParent();
        while (!partnerOf(*folder))
            folder = folder->getParent();
        return *partnerOf(*folder);
    }

    // Returns the index after the nearest item that was before `node` and is in the folder, or 0.
    std::size_t indexFor(const Bookmark* previous, const Bookmark& folder) const {
        for (; previous; previous = previousSibling(*previous)) {
            const Bookmark* live = partnerOf(*previous);
            if (live && live->getParent() == &folder)
                return folder.getChildren()->indexOf(*live) + 1;
        }
        return 0;
    }

    const Bookmark* previousSibling(const Bookmark& node) const {
        const ChildList& siblings = *node.getParent()->getChildren();
        const std::size_t index = siblings.indexOf(node);
        return index == 0 ? nullptr : siblings.at(index - 1);
    }

    void restore(Bookmark& node, const Bookmark* previous) {
        const Ref<Bookmark> copy = Bookmark::initWithBookmark(node);
        if (node.getChildren() && !copy->getChildren())
            copy->makeChildList();
        Bookmark& folder = folderFor(node);
        copy->setDocument(after_.getDocument());
        folder.insertChild(indexFor(previous, folder), copy);
        restored_.emplace(&node, copy.get());
        ++count_;
    }

    void moveBack(Bookmark& live, const Bookmark& node, const Bookmark* previous) {
        Bookmark& folder = folderFor(node);
        if (live.offSpring(folder))
            return;
        const Ref<Bookmark> held(&live);
        live.detachMe();
        folder.insertChild(indexFor(previous, folder), held);
    }

    const TreeComparison& comparison_;
    const Bookmark& before_;
    Bookmark& after_;
    std::unordered_map<const Bookmark*, const TreeDifference*> chosen_;
    std::unordered_map<const Bookmark*, Bookmark*> restored_;
    std::size_t count_ = 0;
};

} // namespace

std::size_t putBack(std::span<const TreeDifference> chosen, const TreeComparison& comparison,
                    const Bookmark& before, Bookmark& after) {
    return PuttingBack(chosen, comparison, before, after).run();
}

} // namespace tabulon
