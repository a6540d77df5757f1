// What an outline (window/Outline.h) reports to the classes that follow it: one small interface each for the
// rows, the selection and the pointer. An observer is called in the order in which the observers were added,
// must live as long as the outline is used, and overrides only the functions that it needs.
#pragma once

#include <cstddef>
#include <optional>

namespace tabulon {

class RowObserver {
public:
    virtual ~RowObserver() = default;

    /// Called before rows come or go. Row numbers that the observer keeps are out of date afterwards.
    virtual void rowsWillChange() {}
    /// Called after rows have come or gone, except by expanding and collapsing.
    virtual void rowsDidChange() {}
    /// Called once for each change of the document's tree, before the document records it.
    virtual void treeDidChange() {}
    /// Called after nodes have left the tree for good.
    virtual void nodesDidLeave() {}
    /// Called after the outline has begun to show another tree.
    virtual void masterDidChange() {}
};

/// The cause of a change of the selection: a key or the mouse, or a command that selects rows of its own.
enum class SelectedBy { User, Program };

class SelectionObserver {
public:
    virtual ~SelectionObserver() = default;

    virtual void selectionDidChange(SelectedBy cause) = 0;
    /// Called when the current row has moved, or its item has changed, without a change of the selection.
    virtual void currentRowDidChange() {}
};

class PointerObserver {
public:
    virtual ~PointerObserver() = default;

    /// Called when the pointer has come to another row, and for each move over no row (`nullopt`).
    virtual void pointerIsOver(std::optional<std::size_t> row) = 0;
    /// Called when the pointer has left the outline.
    virtual void pointerDidLeave() = 0;
};

} // namespace tabulon
