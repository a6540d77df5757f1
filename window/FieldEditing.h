// Editing an item's texts in place: taking over what was typed, and beginning to edit, by command or, where
// the setting "AutoEdit" is on, half a second after a click.
#pragma once

#include "platform/Platform.h"
#include "window/OutlineColumns.h"
#include "window/OutlineObservers.h"

#include <cstddef>
#include <memory>
#include <string>

namespace tabulon {

class ActionTable;
class Bookmark;
class Outline;
class WindowController;

/// Adds the action "editBookmark:".
class FieldEditing : private SelectionObserver {
public:
    /// Requires: the arguments and the services of `platform` outlive this object.
    FieldEditing(Outline& outline, const WindowController& window, const Platform& platform,
                 ActionTable& actions);

    /// Returns whether the cell can be edited: the URL of everything but folders and locked items, and the
    /// other columns of everything but separators.
    static bool shouldEdit(Column column, const Bookmark& item);

    /// Sets the name of the row's item to `string` (UTF-8) and its modification date, and makes the document
    /// dirty. Does nothing if the name has not changed; a null name and an empty one are the same.
    void endNameEdit(std::size_t row, const std::string& string);
    /// Does the same with the URL, and classifies the item.
    void endURLEdit(std::size_t row, const std::string& string);
    /// Does the same with the tags.
    void endTagsEdit(std::size_t row, const std::string& string);

    /// Begins to edit the current row's name. Shows the no-selection alert if no row is selected. Does
    /// nothing for a separator.
    void editBookmark();
    /// Begins to edit the current row's name. Does nothing if no row is selected, or the cell cannot be
    /// edited.
    void editNameBookmark();
    /// Does the same with the URL.
    void editURLBookmark();
    /// Does the same with the tags. Does nothing while the tags column is not shown.
    void editTagsBookmark();
    /// Ends editing in place, cancels automatic editing, and begins to edit the cell of the item that has
    /// this row. Requires: the cell can be edited.
    void beginEditing(Column column, std::size_t row);
    /// Ends editing in place if a row is selected. What was typed is taken over.
    void endEdit();
    /// Cancels the automatic editing that a click has scheduled.
    void cancelAutoEdit() { autoEdit_.reset(); }
    /// Ends editing in place and takes over what was typed. Cancels automatic editing. Does nothing before
    /// there is a window.
    void commitEditing();

private:
    void selectionDidChange(SelectedBy cause) override;
    /// Sets the modification date and makes the document dirty.
    void fieldDidChange(Bookmark& item);
    /// Begins to edit a cell of the current row, if it can be edited.
    void editCurrentRow(Column column);
    /// Begins the pause, if the setting and the pointer allow it.
    void scheduleAutoEdit();
    /// Begins to edit after the pause, if the keyboard is still in the rows.
    void autoEdit(Column column);

    Outline& outline_;
    const WindowController& window_;
    const Platform platform_;
    std::unique_ptr<Timer> autoEdit_;
};

} // namespace tabulon
