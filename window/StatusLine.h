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

    void showAddress(Bookmark& item);
    Counts countNodes() const;
    void statusIsOutOfDate();
    void show(std::string text);
    void forgetStatus();
    void refreshSoon();
    void refresh();

    Outline& outline_;
    const Platform platform_;
    DocumentWindow* window_ = nullptr;
    std::string text_;
    std::string status_; ///< empty for no status
    Action action_;
    std::string actionTitle_;
    bool endsWithSave_ = false;
    bool isStale_ = false;         ///< the line shows a status that was removed
    std::optional<Counts> counts_; ///< `nullopt` after a change of the tree
    Ref<Bookmark> spokenOf_;
    std::unique_ptr<Timer> refresh_;
};

} // namespace tabulon
