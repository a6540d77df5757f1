// A tree as a list of its nodes in document order, each with its depth: a reference for the commands of the
// window. It has no links between nodes and stores no rows and no indexes of children, so that it shares no
// code with the commands. ReferenceCommands.h defines the commands on it.
#pragma once

#include "model/Bookmark.h"
#include "tests/window/ReferenceTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tabulon {

/// The state of one node.
struct ReferenceNode {
    /// The node, held so that no new node has its address. `nullptr` for a node that a command makes.
    Ref<Bookmark> node = nullptr;
    std::size_t depth = 0;
    Text name = {};
    bool isFolder = false;
    bool isSeparator = false;
    bool isExpanded = false;
    bool isSelected = false;
    std::uint8_t label = 0;
};

/// The place of a child: the place of its folder and the number of children before it.
struct ReferenceChild {
    std::size_t folder;
    std::size_t index;
};

/// A tree in document order. The first node is the root, which has depth 0 and no row. A place is a position
/// in that order.
class ReferenceOutline {
public:
    using Nodes = std::vector<ReferenceNode>;

    ReferenceOutline() = default;
    /// Copies the state of the tree. No node is selected.
    explicit ReferenceOutline(Bookmark& root) {
        nodes_.push_back(stateOf(root, 0));
        for (Bookmark* node : nodesOfTree(root))
            nodes_.push_back(stateOf(*node, depthOf(*node, root)));
    }

    ReferenceNode& at(std::size_t place) { return nodes_.at(place); }
    const ReferenceNode& at(std::size_t place) const { return nodes_.at(place); }
    std::size_t size() const { return nodes_.size(); }
    /// Returns the place of the node, or `size()` if the tree does not contain it.
    std::size_t find(const Bookmark* node) const {
        std::size_t place = 0;
        while (place < nodes_.size() && nodes_[place].node.get() != node)
            ++place;
        return place;
    }
    /// Returns the place after the last node below `place`.
    std::size_t endOf(std::size_t place) const {
        std::size_t end = place + 1;
        while (end < nodes_.size() && nodes_[end].depth > nodes_[place].depth)
            ++end;
        return end;
    }
    std::size_t parentOf(std::size_t place) const {
        std::size_t parent = place - 1;
        while (nodes_[parent].depth >= nodes_[place].depth)
            --parent;
        return parent;
    }
    /// Returns the places of the children of `folder`.
    std::vector<std::size_t> childrenOf(std::size_t folder) const {
        std::vector<std::size_t> children;
        const std::size_t end = endOf(folder);
        for (std::size_t place = folder + 1; place < end; place = endOf(place))
            children.push_back(place);
        return children;
    }
    /// Returns the place of a child that would be directly after `place` in its folder.
    ReferenceChild placeAfter(std::size_t place) const {
        const std::size_t folder = parentOf(place);
        const std::vector<std::size_t> children = childrenOf(folder);
        const auto child = std::ranges::find(children, place);
        return {folder, static_cast<std::size_t>(child - children.begin()) + 1};
    }
    /// Returns the places of the nodes that have a row, from the top.
    std::vector<std::size_t> rows() const {
        std::vector<std::size_t> places;
        for (std::size_t place = 1; place < nodes_.size();) {
            places.push_back(place);
            place = isOpen(place) ? place + 1 : endOf(place);
        }
        return places;
    }
    /// Returns the places of the selected nodes, from the top.
    std::vector<std::size_t> selected() const {
        std::vector<std::size_t> places;
        for (std::size_t place = 0; place < nodes_.size(); ++place)
            if (nodes_[place].isSelected)
                places.push_back(place);
        return places;
    }

    void select(std::size_t place) { nodes_.at(place).isSelected = true; }
    void deselectAll() {
        for (ReferenceNode& node : nodes_)
            node.isSelected = false;
    }
    void deselectHidden() {
        std::vector<std::size_t> shown = rows();
        std::erase_if(shown, [this](std::size_t place) { return !nodes_[place].isSelected; });
        deselectAll();
        for (const std::size_t place : shown)
            select(place);
    }

    /// Returns the node and everything below it.
    Nodes subtree(std::size_t place) const {
        return {nodes_.begin() + offset(place), nodes_.begin() + offset(endOf(place))};
    }
    /// Returns `nodes` as new nodes that are not selected.
    static Nodes copyOf(Nodes nodes) {
        for (ReferenceNode& node : nodes) {
            node.node = nullptr;
            node.isSelected = false;
        }
        return nodes;
    }
    /// Removes the node with everything below it, and returns them.
    Nodes remove(std::size_t place) {
        Nodes removed = subtree(place);
        nodes_.erase(nodes_.begin() + offset(place), nodes_.begin() + offset(endOf(place)));
        return removed;
    }
    /// Inserts a subtree before `place`, at this depth. Returns `place`.
    std::size_t insert(std::size_t place, std::size_t depth, Nodes subtree) {
        const std::size_t top = subtree.front().depth;
        for (ReferenceNode& node : subtree)
            node.depth = node.depth - top + depth;
        nodes_.insert(nodes_.begin() + offset(place), subtree.begin(), subtree.end());
        return place;
    }
    /// Inserts a subtree as a new row is inserted: into an expanded folder as its first child, and else after
    /// the anchor. Returns its place.
    std::size_t insertAtAnchor(std::size_t anchor, Nodes subtree) {
        const bool within = anchor == 0 || isOpen(anchor);
        return insert(within ? anchor + 1 : endOf(anchor), nodes_[anchor].depth + std::size_t{within},
                      std::move(subtree));
    }
    /// Inserts a subtree as this child. Returns its place.
    std::size_t insertChild(ReferenceChild child, Nodes subtree) {
        const std::vector<std::size_t> children = childrenOf(child.folder);
        const std::size_t place = child.index < children.size() ? children[child.index] : endOf(child.folder);
        return insert(place, nodes_[child.folder].depth + 1, std::move(subtree));
    }

    /// Expands or collapses the folders among the nodes from `place` on and before `end`. Returns the number
    /// of folders that were not so before.
    std::size_t expand(bool expanded, std::size_t place, std::size_t end) {
        std::size_t changes = 0;
        for (; place < end; ++place) {
            if (!nodes_[place].isFolder || nodes_[place].isExpanded == expanded)
                continue;
            nodes_[place].isExpanded = expanded;
            ++changes;
        }
        return changes;
    }

    /// Expects that the tree of `root` has these nodes in this order at these depths, each in its state.
    /// Nodes that a command has made must be new ones, and are known from then on.
    void expectTree(Bookmark& root) {
        const ReferenceOutline tree(root);
        ASSERT_EQ(tree.size(), size());
        std::unordered_set<const Bookmark*> known;
        for (const ReferenceNode& node : nodes_)
            known.insert(node.node.get());
        for (std::size_t place = 0; place < size(); ++place) {
            const ReferenceNode& node = tree.at(place);
            ReferenceNode& wanted = nodes_[place];
            if (!wanted.node) {
                ASSERT_TRUE(known.insert(node.node.get()).second) << "a known node at " << place;
                wanted.node = node.node;
            }
            ASSERT_EQ(node.node, wanted.node) << "another node at " << place;
            ASSERT_EQ(node.depth, wanted.depth) << "another parent at " << place;
            ASSERT_EQ(node.name, wanted.name) << "another name at " << place;
            ASSERT_EQ(node.isFolder, wanted.isFolder) << "another kind at " << place;
            ASSERT_EQ(node.isSeparator, wanted.isSeparator) << "another kind at " << place;
            ASSERT_EQ(node.isExpanded, wanted.isExpanded) << "expanded or collapsed at " << place;
            ASSERT_EQ(node.label, wanted.label) << "another label at " << place;
        }
    }

private:
    static std::ptrdiff_t offset(std::size_t place) { return static_cast<std::ptrdiff_t>(place); }
    static ReferenceNode stateOf(Bookmark& node, std::size_t depth) {
        return {.node = Ref<Bookmark>(&node),
                .depth = depth,
                .name = node.itemName(),
                .isFolder = node.isFolder(),
                .isSeparator = node.isSeparator(),
                .isExpanded = node.showHier(),
                .isSelected = false,
                .label = node.getLabel()};
    }
    static std::size_t depthOf(const Bookmark& node, const Bookmark& root) {
        std::size_t depth = 0;
        for (const Bookmark* each = &node; each != &root; each = each->getParent())
            ++depth;
        return depth;
    }
    bool isOpen(std::size_t place) const { return nodes_[place].isFolder && nodes_[place].isExpanded; }

    Nodes nodes_;
};

} // namespace tabulon
