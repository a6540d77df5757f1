// Editing an item's texts in place: what the fields of a row do when they end, and how editing begins, by
// command or, where the setting "AutoEdit" is on, a moment after a click.
#pragma once

#include "platform/Platform.h"
#include "window/CellContent.h"
#include "window/OutlineObservers.h"

#include <cstddef>
#include <memory>
#include <string>

namespace tabulon {

class ActionTable;
class Bookmark;
class Outline;
class WindowController;

/// Adds the action "editBookmark:". Ends editing before every action of the table.
class FieldEditing : private SelectionObserver {
public:
    /// What is handed in must live longer.
    FieldEditing(Outline& outline, const WindowController& window, const Platform& platform,
                 ActionTable& actions);

    static bool shouldEdit(Column column, const Bookmark& item);

    /// The field has ended with this text. A text that is another one than before is taken over, with the
    /// date of the change.
    void endNameEdit(std::size_t row, const std::string& string);
    void endURLEdit(std::size_t row, const std::string& string);
    void endTagsEdit(std::size_t row, const std::string& string);

    /// Begins with the current row's name; shows the no-selection alert without one.
    void editBookmark();
    /// The same for one field, without an alert.
    void editNameBookmark();
    void editURLBookmark();
    void editTagsBookmark();
    /// Begins to edit the cell, which must be one that can be edited. Editing that goes on ends first, and
    /// none begins by itself any more.
    void beginEditing(Column column, std::size_t row);
    void endEdit();
    /// Keeps editing from beginning by itself for the selection made before.
    void cancelAutoEdit() { autoEdit_.reset(); }
    /// Ends editing in place, if it goes on, and takes over what was typed.
    void commitEditing();

private:
    void selectionDidChange(SelectedBy cause) override;
    void fieldDidChange(Bookmark& item);
    void editCurrentRow(Column column);
    void scheduleAutoEdit();
    void autoEdit(Column column);

    Outline& outline_;
    const WindowController& window_;
    const Platform platform_;
    std::unique_ptr<Timer> autoEdit_;
};

} // namespace tabulon
