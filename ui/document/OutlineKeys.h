// The keys of the outline that are not those of every list: expanding, deleting, the first key while no row
// is selected, and finding a row by the beginning of its name.
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <cstddef>

class QKeyEvent;

namespace tabulon {

class EditingCommands;
class ExpandCommands;
class Finding;
class OpenCommands;
class Outline;
class OutlineRowsView;

/// Performs keys on the current row of a view. Requires: the view has a model while a function is called.
class OutlineKeys {
public:
    /// What the keys run.
    struct Commands {
        /// Expands and collapses.
        Outline& outline;
        /// Deletes the selected items.
        EditingCommands& editing;
        /// Toggles a folder by Return.
        ExpandCommands& expanding;
        /// Opens the selected links by Return.
        OpenCommands& opening;
        /// Finds a row by the beginning of its name.
        Finding& finding;
    };

    /// Requires: `view` and the commands outlive this object.
    OutlineKeys(OutlineRowsView& view, const Commands& commands) : view_(view), commands_(commands) {}

    /// Performs the key if it is one of the outline, and returns whether it is. A Return that is repeated
    /// while it is held does nothing and counts as one, because it may have ended a field.
    bool press(const QKeyEvent& event);
    /// Selects the next row whose name begins with the letters that were typed in quick succession, of which
    /// `text` is the last. The same letter again selects the next such row. After the last row the search
    /// continues with the first one. Does nothing if no name begins so.
    void type(const QString& text);
    /// Expands a collapsed folder and collapses an expanded one. Does nothing for other rows. Requires: the
    /// row exists.
    void toggleRow(std::size_t row);

private:
    /// Handles a key that expands, collapses or moves in the tree. Returns whether it is one.
    bool pressTreeKey(int key);
    /// Expands the folder, or selects its first child if it is expanded.
    void goRight(std::size_t row);
    /// Collapses the folder, or selects the row of the folder that the item is in if it is not expanded.
    void goLeft(std::size_t row);
    /// Selects a row if none is selected. Returns whether it did.
    bool showCursor(int key);

    OutlineRowsView& view_;
    const Commands commands_;
    /// The beginning of a name, as typed. Valid while the user types in quick succession.
    QString typed_;
    QElapsedTimer sinceTyped_;
};

} // namespace tabulon
