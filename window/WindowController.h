// The document window: its title, its find bar, its info panel, and whether it shows rows or the help for an
// empty document.
#pragma once

#include "platform/Platform.h"
#include "window/FindBar.h"
#include "window/Finding.h"
#include "window/OutlineObservers.h"

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
    /// What is handed in must live longer.
    WindowController(Outline& outline, Finding& finding, const Platform& platform, ActionTable& actions);
    ~WindowController() override;
    WindowController(const WindowController&) = delete;
    WindowController& operator=(const WindowController&) = delete;

    /// Sets the window, which must exist from before the first command until after the last.
    void setWindow(DocumentWindow* window);
    DocumentWindow* getWindow() const { return window_; }

    // The title

    /// The window shows `title` instead of the document's name until the document has a file.
    void setWindowTitle(std::string title);
    std::string windowTitle() const;
    /// The document's name, file or edited state has changed.
    void documentStateChanged();

    FindBarController& findBar() { return findBar_; }

    // The info panel (GetInfoController.h)

    /// Shows the clicked row's item where that is not selected, else the current row's; shows the
    /// no-selection alert without one. A panel that is up goes to that item.
    void getInfo();
    /// Saves the change of a panel that is up and dismisses it.
    void dismissInfo();

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
    std::string windowTitle_; ///< empty where it is the document's name
};

} // namespace tabulon
