// The commands that create, remove, move and label items. Editing an item's texts in place is in
// FieldEditing.
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

/// Whether the name of a new item is edited as soon as it is inserted.
enum class Editing { No, Begins };

/// Adds the actions "newBookmark:", "newFolder:", "addBookmark:", "insertSeparator:", "delete:", "moveUp:",
/// "moveDown:", "labelBookmark:" and "selectAll:".
class EditingCommands {
public:
    /// Requires: the arguments and the services of `platform` outlive this object.
    EditingCommands(Outline& outline, FieldEditing& fields, StatusLine& statusLine, const Platform& platform,
                    ActionTable& actions);

    // New items. An item is inserted after the current row, or as the first child of that row's folder where
    // it is expanded. Without a current row it is inserted as the first item of the document. Its row becomes
    // the only selected one. The items passed in must be in no tree.

    /// Inserts the item and, if `editing` says so and it has a row, begins to edit its name. Does not make
    /// the document dirty.
    void addNewData(Ref<Bookmark> item, Editing editing = Editing::No);
    /// Inserts the item relative to `row` instead of the current row; `nullopt` is the top of the document.
    /// Does not make the document dirty.
    void insertNewData(Ref<Bookmark> item, std::optional<std::size_t> row);
    /// Inserts one item after the other as `addNewData` does, and makes the document dirty once for each.
    void addNewItems(const std::vector<Ref<Bookmark>>& items);
    /// Inserts a link with the URL "https://" and the default name, begins to edit the name, and makes the
    /// document dirty.
    void newBookmark();
    /// Inserts an empty folder with the default name, begins to edit the name, and makes the document dirty.
    void newFolder();
    /// Expands the current row's folder and inserts a new link in it as `newBookmark` does. Does nothing if
    /// the current row is no folder.
    void addBookmark();
    /// Inserts a separator and makes the document dirty.
    void insertSeparator();

    // Removing and moving

    /// Removes the items of the selected rows as one change, and reports it with `didDelete`. Shows the
    /// no-selection alert if no row is selected.
    void deleteSelection();
    /// Reports to the observers that nodes were removed for good, and shows in the status line what was
    /// deleted, with a button that runs `putBack`. Requires: the items have been removed.
    void didDelete(std::vector<RemovedItem> removed);
    /// Ends editing in place, inserts the items at their places as one change, selects them and scrolls to
    /// the first one. Requires: `removed` is not empty, and nothing else of the tree has changed since its
    /// items were removed.
    void putBack(const std::vector<RemovedItem>& removed);
    /// Moves the selected item above the row before it, into or out of a folder if need be. Beeps for the
    /// first row and for several rows. Shows the no-selection alert if no row is selected.
    void moveUp();
    /// Moves the selected item below the row after it, into or out of a folder if need be. Beeps for the last
    /// row and for several rows. Shows the no-selection alert if no row is selected. An expanded folder whose
    /// rows are the last ones is deleted instead, with the offer to put it back.
    void moveDown();

    /// Sets the label of the items that a command acts on, each as one change. Skips separators, and items
    /// that have this label already.
    void labelBookmark(std::uint8_t label);

private:
    /// Inserts the item as the first child of `anchor` if it is expanded or the root, else after it. Selects
    /// its row.
    void insertAtAnchor(Bookmark& anchor, Ref<Bookmark> item);
    /// Does what `addNewItems` does, with the rows laid out once.
    void addManyNewItems(const std::vector<Ref<Bookmark>>& items);

    Outline& outline_;
    FieldEditing& fields_;
    StatusLine& statusLine_;
    const Platform platform_;
};

} // namespace tabulon
