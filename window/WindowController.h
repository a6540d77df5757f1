// The document window: its title, its find bar, its info panel, its sheets, and whether it shows rows or the
// help for an empty document.
#pragma once

#include "platform/Platform.h"
#include "window/FindBar.h"
#include "window/Finding.h"
#include "window/OutlineObservers.h"

#include <functional>
#include <memory>
#include <string>

namespace tabulon {

class ActionTable;
class DocumentWindow;
class GetInfoController;
class Outline;

/// Adds the actions "getInfo:", "showFindView:", "performFindPanelAction:", "hideFindView:", "findNext:" and
/// "legendaSheet:".
class WindowController : private RowObserver, private FindObserver {
public:
    /// Requires: the arguments and the services of `platform` outlive this object.
    WindowController(Outline& outline, Finding& finding, const Platform& platform, ActionTable& actions);
    ~WindowController() override;
    WindowController(const WindowController&) = delete;
    WindowController& operator=(const WindowController&) = delete;

    /// Sets the window, which must exist from before the first command until after the last.
    void setWindow(DocumentWindow* window);
    /// Returns the window, or `nullptr` before `setWindow`.
    DocumentWindow* getWindow() const { return window_; }

    // The title

    /// Shows `title` instead of the document's name, until the document has a file.
    void setWindowTitle(std::string title);
    /// Returns the title that the window shows.
    std::string windowTitle() const;
    /// Updates the title. Called when the document's name, file or edited state has changed.
    void documentStateChanged();

    /// Returns the controller of the find bar.
    FindBarController& findBar() { return findBar_; }

    // The info panel (GetInfoController.h)

    /// Shows the item that a command acts on in the info panel; of several items, the current row's. Shows
    /// the no-selection alert if there is no item. A panel that is open shows the item instead of its own.
    void getInfo();
    /// Saves the change of an open panel and closes it. Does nothing if no panel is open.
    void dismissInfo();

    // The sheets

    /// Shows the sheet in which the user chooses which marked links are removed, and how. Returns at once.
    /// Calls `deleteSheetExecute` when the user has confirmed, unless this object was destroyed before.
    void moveDeleteSheet(std::function<void()> deleteSheetExecute);
    /// Shows a sheet that explains the marks of links.
    void legendaSheet();

private:
    void rowsDidChange() override;
    void treeDidChange() override;
    void nodesDidLeave() override;
    void masterDidChange() override;
    void foundOutsideRows(FoundIn text, const std::string& match) override;

    Outline& outline_;
    Finding& finding_;
    const Platform platform_;
    DocumentWindow* window_ = nullptr;
    FindBarController findBar_;
    std::shared_ptr<GetInfoController> info_;
    std::string windowTitle_; ///< empty if the window shows the document's name
    /// Lets a sheet that outlives this object find out.
    const std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

} // namespace tabulon
