// A document's window as the controllers see it. How it looks is ui/'s affair.
#pragma once

#include "window/FindBar.h"
#include "window/OutlineView.h"

#include <memory>
#include <string>

namespace tabulon {

class GetInfoController;
class MoveDeleteController;

/// Texts are UTF-8. Destroying the object closes the window without a question.
class DocumentWindow {
public:
    virtual ~DocumentWindow() = default;

    virtual OutlineView& outline() = 0;

    /// `path` is the document's file in the file system's encoding, empty for none; `edited` shows the edited
    /// mark.
    virtual void setTitle(const std::string& name, const std::string& path, bool edited) = 0;
    virtual void setURLFieldText(const std::string& text) = 0;
    /// Shows a button of this title beside the URL field, which `description` explains; none for an empty
    /// title. Pressing it is the status line's `performAction`.
    virtual void setURLFieldAction(const std::string& title, const std::string& description) = 0;
    /// The URL field takes the system's font in this size, in points of 1/72 inch.
    virtual void setURLFieldFontSize(double size) = 0;
    /// True shows the help for an empty document in place of the rows.
    virtual void showEmptyState(bool empty) = 0;

    virtual FindBar& findBar() = 0;

    /// The sheet calls `viewDidLoad` when it comes up, and `done` and `execute` unless it is cancelled.
    virtual void presentMoveDelete(std::shared_ptr<MoveDeleteController> controller) = 0;
    /// The panel takes part in `setPanel` as long as it is there.
    virtual void presentInfo(std::shared_ptr<GetInfoController> controller) = 0;
    /// What the marks of links mean.
    virtual void presentLegenda() = 0;

    /// Place and size of the window as a text that `setFrame` of any window understands; what it does not
    /// understand is passed over.
    virtual std::string frame() const = 0;
    virtual void setFrame(const std::string& frame) = 0;

    /// Whether the window is the one that the user works with. False while an alert or a sheet is in front.
    virtual bool isKeyWindow() const = 0;

    virtual void show() = 0;
    virtual void makeKeyAndOrderFront() = 0;
    /// Puts the window away as the desktop does; `makeKeyAndOrderFront` brings it back.
    virtual void performMiniaturize() = 0;
};

} // namespace tabulon
