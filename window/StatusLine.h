// The line below the outline, the window's URL field: the address under the pointer or of the current row,
// what the last command did with a button for what can be done about it, or what the document holds.
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

class StatusLine : private RowObserver, private SelectionObserver, private PointerObserver {
public:
    using Action = std::function<void()>;

    /// Both must live longer.
    StatusLine(Outline& outline, const Platform& platform);

    /// The window that shows the line; before anything else is called.
    void setWindow(DocumentWindow* window) { window_ = window; }

    /// Shows `text` until the tree changes. Addresses that the pointer or the selection shows meanwhile
    /// replace it; it is back when the pointer leaves the rows. With an action there is a button of that
    /// title all the while.
    void showStatus(std::string text, std::string actionTitle = {}, Action action = nullptr);
    /// The same with the button that is there, if there is one: what it does can still be done.
    void replaceStatus(std::string text);
    /// The same without a button, for a text that is out of date as well once the document is saved.
    void showStatusUntilSaved(std::string text);
    /// The user has pressed the button: the status is gone, then the action runs.
    void performAction();

    /// Shows "3 bookmarks in 2 folders" for the whole document.
    void showCounts();
    std::string countsText();
    /// The document is as it was saved.
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
    std::string status_; ///< empty for none
    Action action_;
    std::string actionTitle_;
    bool endsWithSave_ = false;
    bool isStale_ = false;         ///< what is shown is a status that is out of date
    std::optional<Counts> counts_; ///< of the tree as it is
    Ref<Bookmark> spokenOf_;
    std::unique_ptr<Timer> refresh_;
};

} // namespace tabulon
