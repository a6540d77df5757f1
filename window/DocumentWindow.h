// A document's window as the controllers use it. How it looks is decided in ui/.
#pragma once

#include "window/FindBar.h"
#include "window/OutlineView.h"

#include <memory>
#include <string>

namespace tabulon {

class GetInfoController;
class MoveDeleteController;

/// A document's window. Texts are UTF-8. Destroying the object closes the window without a question.
class DocumentWindow {
public:
    virtual ~DocumentWindow() = default;

    /// Returns the view of the rows. It exists as long as the window.
    virtual OutlineView& outline() = 0;

    /// Shows the title. `path` is the document's file in the file system's encoding, empty for a document
    /// without a file; `edited` says whether the window shows the mark of unsaved changes.
    virtual void setTitle(const std::string& name, const std::string& path, bool edited) = 0;
    /// Shows `text` in the URL field, in one line.
    virtual void setURLFieldText(const std::string& text) = 0;
    /// Shows a button with this title beside the URL field, or hides it if `title` is empty. `description` is
    /// the button's tool tip and its description for screen readers. The button calls
    /// `StatusLine::performAction`.
    virtual void setURLFieldAction(const std::string& title, const std::string& description) = 0;
    /// Shows the URL field in the system's font in this size, in points of 1/72 inch.
    virtual void setURLFieldFontSize(double size) = 0;
    /// Shows the help for an empty document instead of the rows, or the rows again.
    virtual void showEmptyState(bool empty) = 0;

    /// Returns the view of the find bar. It exists as long as the window.
    virtual FindBar& findBar() = 0;

    /// Shows the sheet that removes links by their marks, and returns at once. The sheet calls `viewDidLoad`
    /// when it opens, and `done` and then `execute` unless it is cancelled. It shares the ownership of the
    /// controller.
    virtual void presentMoveDelete(std::shared_ptr<MoveDeleteController> controller) = 0;
    /// Shows the info panel, which passes itself to `setPanel`, and returns at once. The panel shares the
    /// ownership of the controller.
    virtual void presentInfo(std::shared_ptr<GetInfoController> controller) = 0;
    /// Shows a sheet that explains the marks of links, and returns at once.
    virtual void presentLegenda() = 0;

    /// Returns the place and size of the window, in a text form that `setFrame` of every window reads.
    virtual std::string frame() const = 0;
    /// Moves and resizes the window as far as the screens allow. Does nothing if `frame` is not in that form.
    virtual void setFrame(const std::string& frame) = 0;

    /// Returns whether the window is the active one. False while an alert or a sheet is active.
    virtual bool isKeyWindow() const = 0;

    /// Shows the window for the first time.
    virtual void show() = 0;
    /// Shows the window, minimized or not, raises it and makes it the active one.
    virtual void makeKeyAndOrderFront() = 0;
    /// Minimizes the window. `makeKeyAndOrderFront` restores it.
    virtual void performMiniaturize() = 0;
};

} // namespace tabulon
