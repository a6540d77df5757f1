// The line below the outline, the window's URL field: the address under the pointer or of the current row,
// what the last command did with a button for what can be done about it, or what the document holds.
#pragma once

#include "model/Bookmark.h"
#include "platform/Platform.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tabulon {

class DocumentWindow;
class ViewController;

class StatusLine {
public:
    using Action = std::function<void()>;

    /// Both must live longer.
    StatusLine(ViewController& outline, const Platform& platform) : outline_(outline), platform_(platform) {}

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

    /// The item's address; nothing for a folder. Once the item has no row any more the line shows the status,
    /// else the counts.
    void showAddress(Bookmark& item);
    void showCounts();
    /// What it shows when the pointer is over no row: the status, else the current row's address,
    /// else the counts.
    void fallBack();

    /// The status is out of date. The line changes a moment later, once for many changes.
    void treeDidChange();
    /// The document is as it was saved.
    void documentDidSave();
    /// Rows come or go; the row that the line speaks of may be among them.
    void rowsWillChange();

private:
    void show(std::string text);
    void forgetStatus();
    void refreshSoon();
    void refresh();

    ViewController& outline_;
    const Platform platform_;
    DocumentWindow* window_ = nullptr;
    std::string text_;
    std::string status_; ///< empty for none
    Action action_;
    std::string actionTitle_;
    bool endsWithSave_ = false;
    bool isStale_ = false; ///< what is shown is a status that is out of date
    Ref<Bookmark> spokenOf_;
    std::unique_ptr<Timer> refresh_;
};

} // namespace tabulon
