// The commands that make, remove, move and label items. Editing an item's texts in place is FieldEditing's.
#pragma once

#include "model/RemovedItems.h"
#include "platform/Platform.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tabulon {

class ActionTable;
class FieldEditing;
class Outline;
class StatusLine;

/// Whether the name of a new item is edited at once.
enum class Editing { No, Begins };

/// Adds the actions "newBookmark:", "newFolder:", "addBookmark:", "insertSeparator:", "delete:", "moveUp:",
/// "moveDown:", "labelBookmark:" and "selectAll:".
class EditingCommands {
public:
    /// What is handed in must live longer.
    EditingCommands(Outline& outline, FieldEditing& fields, StatusLine& statusLine, const Platform& platform,
                    ActionTable& actions);

    // New items. An item goes into the current row's folder, as its first child, where that is expanded, else
    // after the current row; without one it goes to the top. Its row is selected alone.

    void addNewData(Ref<Bookmark> item, Editing editing = Editing::No);
    /// The same relative to `row`; `nullopt` is the root.
    void insertNewData(Ref<Bookmark> item, std::optional<std::size_t> row);
    /// Adds one item after the other as `addNewData` does, each as a change of its own.
    void addNewItems(const std::vector<Ref<Bookmark>>& items);
    void newBookmark();
    void newFolder();
    /// Adds to the current row's folder, which is expanded for it; does nothing where that is no folder.
    void addBookmark();
    void insertSeparator();

    // Removing and moving

    /// Removes the items of the selected rows, or shows the no-selection alert.
    void deleteSelection();
    /// Reports items that a command has deleted, with a button that puts them back.
    void didDelete(std::vector<RemovedItem> removed);
    /// Inserts the items in their places, as one change, and selects them. Requires: nothing else of the
    /// tree has changed since they were removed.
    void putBack(const std::vector<RemovedItem>& removed);
    /// The one selected item goes above the row before it, or below the row after it, in and out of
    /// folders. They beep where there is nowhere to go and for several rows. An expanded folder whose rows
    /// are the last ones is removed by moving it down.
    void moveUp();
    void moveDown();

    /// Sets the label of the items that a command acts on.
    void labelBookmark(std::uint8_t label);

private:
    void insertAtAnchor(Bookmark& anchor, Ref<Bookmark> item);
    void addManyNewItems(const std::vector<Ref<Bookmark>>& items);

    Outline& outline_;
    FieldEditing& fields_;
    StatusLine& statusLine_;
    const Platform platform_;
};

} // namespace tabulon
