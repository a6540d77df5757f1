// The line below the outline, the window's URL field. It shows the address under the pointer or of the
// current row, the result of the last command with a button for a further action, or the number of bookmarks
// and folders.
#pragma once

#include "model/Bookmark.h"
#include "platform/Platform.h"
#include "window/OutlineObservers.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tabulon {

class DocumentWindow;
class Outline;

/// The text and the button of the line.
class StatusLine : private RowObserver, private SelectionObserver, private PointerObserver {
public:
    /// What the button does.
    using Action = std::function<void()>;

    /// Requires: `outline` and the services of `platform` outlive this object.
    StatusLine(Outline& outline, const Platform& platform);

    /// Sets the window that shows the line. Requires: no other function was called before.
    void setWindow(DocumentWindow* window) { window_ = window; }

    /// Shows `text` until the tree changes. Addresses under the pointer and of the current row replace it; it
    /// is shown again when the pointer leaves the rows. If there is an action, a button of that title is
    /// shown all the time.
    void showStatus(std::string text, std::string actionTitle = {}, Action action = nullptr);
    /// Shows `text` in the same way, and keeps the button of the status before it.
    void replaceStatus(std::string text);
    /// Shows `text` in the same way, without a button, and at most until the document is saved.
    void showStatusUntilSaved(std::string text);
    /// Removes the status, then runs its action. Does nothing if there is no action. Called when the button
    /// is pressed.
    void performAction();

    /// Shows the text of `countsText`.
    void showCounts();
    /// Returns "3 bookmarks in 2 folders" for the whole document, in the user's language. The time is linear
    /// in the number of nodes if the tree has changed since the last call.
    std::string countsText();
    /// Removes a status of `showStatusUntilSaved`. Called when the document has no unsaved changes.
    void documentDidSave();

private:
    /// What `countsText` shows. Separators are not counted.
    struct Counts {
        std::size_t bookmarks = 0;
        std::size_t folders = 0;
    };

    void rowsWillChange() override;
    void treeDidChange() override;
    void masterDidChange() override;
    void selectionDidChange(SelectedBy cause) override;
    void currentRowDidChange() override;
    void pointerIsOver(std::optional<std::size_t> row) override;
    void pointerDidLeave() override;

    /// Shows the item's address.
    void showAddress(Bookmark& item);
    /// Counts the whole tree.
    Counts countNodes() const;
    /// Removes the status, if there is one, and updates the line soon.
    void statusIsOutOfDate();
    /// Shows `text` if it differs from what is shown.
    void show(std::string text);
    /// Removes the status and its button. What the line shows stays until `refresh`.
    void forgetStatus();
    /// Calls `refresh` from the main loop, once for several calls.
    void refreshSoon();
    /// Replaces a status that was removed, or the address of an item without a row.
    void refresh();

    Outline& outline_;
    const Platform platform_;
    DocumentWindow* window_ = nullptr;
    /// What the line shows.
    std::string text_;
    std::string status_; ///< empty for no status
    Action action_;
    std::string actionTitle_;
    /// Whether the status ends when the document is saved.
    bool endsWithSave_ = false;
    bool isStale_ = false;         ///< the line shows a status that was removed
    std::optional<Counts> counts_; ///< `nullopt` after a change of the tree
    /// The item whose address the line shows.
    Ref<Bookmark> addressItem_;
    std::unique_ptr<Timer> refresh_;
};

} // namespace tabulon
