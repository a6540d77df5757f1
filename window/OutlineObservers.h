// What an outline (window/Outline.h) reports to the classes that observe it: one small interface each for the
// rows, the selection and the pointer. Observers are called in the order in which they were added. They must
// exist as long as the outline is used, and override only the functions that they need.
#pragma once

#include <cstddef>
#include <optional>

namespace tabulon {

/// Receives changes of the rows and of the tree.
class RowObserver {
public:
    virtual ~RowObserver() = default;

    /// Called before rows are inserted or removed. Row numbers that the observer keeps are out of date after
    /// that.
    virtual void rowsWillChange() {}
    /// Called after rows were inserted or removed, except by expanding and collapsing.
    virtual void rowsDidChange() {}
    /// Called once for each change of the document's tree, before the document records it.
    virtual void treeDidChange() {}
    /// Called after nodes were removed from the tree for good.
    virtual void nodesDidLeave() {}
    /// Called after the outline was given another tree.
    virtual void masterDidChange() {}
};

/// The cause of a change of the selection: a key or the mouse, or a command that selects rows of its own.
enum class SelectedBy { User, Program };

/// Receives changes of the selection and of the current row.
class SelectionObserver {
public:
    virtual ~SelectionObserver() = default;

    /// Called after the selection has changed.
    virtual void selectionDidChange(SelectedBy cause) = 0;
    /// Called when the current row has moved, or its item has changed, without a change of the selection.
    virtual void currentRowDidChange() {}
};

/// Receives moves of the pointer.
class PointerObserver {
public:
    virtual ~PointerObserver() = default;

    /// Called when the pointer has moved to another row, and for each move over no row (`nullopt`).
    virtual void pointerIsOver(std::optional<std::size_t> row) = 0;
    /// Called when the pointer has left the outline.
    virtual void pointerDidLeave() = 0;
};

} // namespace tabulon
