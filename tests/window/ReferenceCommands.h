// The definitions of the editing commands on a ReferenceOutline: the tree, the selection and the number of
// changes that each command must have as its result.
#pragma once

#include "tests/window/ReferenceOutline.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tabulon {

/// The state of a window that the commands change.
struct ReferenceWindow {
    ReferenceOutline tree;
    /// The place of the current row's item; `nullopt` without a selection.
    std::optional<std::size_t> current;
    bool remembersDesktop = true;
    /// The copied subtrees.
    std::vector<ReferenceOutline::Nodes> copied;
    /// The changes that the commands have made in the document.
    std::size_t changes = 0;

    /// Inserts a subtree at the current row and selects its first node alone.
    void insert(ReferenceOutline::Nodes subtree) {
        const std::size_t place = tree.insertAtAnchor(current.value_or(0), std::move(subtree));
        tree.deselectAll();
        tree.select(place);
        current = place;
        ++changes;
    }
    /// Inserts a bookmark in the folder of the current row, which becomes expanded.
    void insertInFolder(const ReferenceNode& node) {
        if (!current || !tree.at(*current).isFolder)
            return;
        expand(true, *current, *current + 1);
        insert({node});
    }

    /// Removes the selected nodes.
    void removeSelection() {
        const std::vector<std::size_t> places = tree.selected();
        for (auto place = places.rbegin(); place != places.rend(); ++place)
            tree.remove(*place);
        changes += places.empty() ? 0 : 1;
    }
    /// Replaces the copied subtrees by those of the selected nodes.
    void copySelection() {
        copied.clear();
        for (const std::size_t place : tree.selected())
            copied.push_back(ReferenceOutline::copyOf(tree.subtree(place)));
    }
    /// Inserts the copied subtrees, each at the one before.
    void paste() {
        for (const ReferenceOutline::Nodes& subtree : copied)
            insert(subtree);
    }

    /// Moves the selected node directly above the row that is above it.
    void moveUp() {
        const std::vector<std::size_t> rows = tree.rows();
        const std::optional<std::size_t> row = onlySelectedRow(rows);
        if (!row || *row == 0)
            return;
        ReferenceOutline::Nodes moved = tree.remove(rows[*row]);
        tree.insertAtAnchor(*row == 1 ? 0 : rows[*row - 2], std::move(moved));
        ++changes;
    }
    /// Moves the selected node after the row that is after its own ones. If its own rows are the last ones,
    /// but not its first one, the node is removed.
    void moveDown() {
        const std::vector<std::size_t> rows = tree.rows();
        const std::optional<std::size_t> row = onlySelectedRow(rows);
        if (!row || *row + 1 == rows.size())
            return;
        ReferenceOutline::Nodes moved = tree.remove(rows[*row]);
        const std::vector<std::size_t> others = tree.rows();
        if (*row < others.size())
            tree.insertAtAnchor(others[*row], std::move(moved));
        ++changes;
    }

    /// Expands or collapses the selected folders, and those below them if `withChildren`.
    void expandSelection(bool expanded, bool withChildren) {
        for (const std::size_t place : tree.selected())
            expand(expanded, place, withChildren ? tree.endOf(place) : place + 1);
        tree.deselectHidden();
    }
    /// Expands or collapses all folders.
    void expandAll(bool expanded) {
        expand(expanded, 1, tree.size());
        tree.deselectHidden();
    }
    /// Expands or collapses the folders from `place` on and before `end`. The selection stays.
    void expand(bool expanded, std::size_t place, std::size_t end) {
        const std::size_t turned = tree.expand(expanded, place, end);
        changes += remembersDesktop ? turned : 0;
    }

    /// Sets the label of the selected nodes, separators excepted.
    void label(std::uint8_t label) {
        for (const std::size_t place : tree.selected()) {
            ReferenceNode& node = tree.at(place);
            if (node.isSeparator || node.label == label)
                continue;
            node.label = label;
            ++changes;
        }
    }

    /// Moves the selected nodes, or copies of them, in order to this place, and selects them.
    void drop(ReferenceChild place, bool copies) {
        const Ref<Bookmark> folder = tree.at(place.folder).node;
        std::vector<Ref<Bookmark>> dragged;
        for (const std::size_t selected : tree.selected())
            dragged.push_back(tree.at(selected).node);
        if (copies)
            tree.deselectAll();
        for (const Ref<Bookmark>& node : dragged) {
            const std::size_t source = tree.find(node.get());
            ReferenceOutline::Nodes subtree = copies ? ReferenceOutline::copyOf(tree.subtree(source))
                                                     : takeOut(source, tree.find(folder.get()), place.index);
            subtree.front().isSelected = true;
            tree.insertChild({tree.find(folder.get()), place.index++}, std::move(subtree));
            ++changes;
        }
        tree.deselectHidden();
    }

private:
    std::optional<std::size_t> onlySelectedRow(const std::vector<std::size_t>& rows) const {
        const std::vector<std::size_t> selected = tree.selected();
        if (selected.size() != 1)
            return std::nullopt;
        return static_cast<std::size_t>(std::ranges::find(rows, selected.front()) - rows.begin());
    }
    // Removes the node at `source`. `index` stays between the same children of `folder`.
    ReferenceOutline::Nodes takeOut(std::size_t source, std::size_t folder, std::size_t& index) {
        const std::vector<std::size_t> children = tree.childrenOf(folder);
        const auto old = std::ranges::find(children, source);
        if (old != children.end() && static_cast<std::size_t>(old - children.begin()) < index)
            --index;
        return tree.remove(source);
    }
};

} // namespace tabulon
