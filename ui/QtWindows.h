// Creating document windows, and finding the window of a document for alerts and panels.
#pragma once

#include "app/DocumentController.h"
#include "platform/Platform.h"

#include <vector>

class QWidget;

namespace tabulon {

class AppDelegate;
class DocumentMainWindow;

/// Creates the windows and keeps a list of them. Requires: it outlives every window that it has made.
class QtWindows : public DocumentWindowMaker {
public:
    /// Sets the icon of the program. `app` and `platform` are used by the windows and may be made after this
    /// object. Requires: both exist as long as a window.
    QtWindows(AppDelegate& app, const Platform& platform);
    QtWindows(const QtWindows&) = delete;
    QtWindows& operator=(const QtWindows&) = delete;

    /// Returns a new window, not shown yet. Never `nullptr`. Destroying it hides the window on the screen at
    /// once. Its widgets are deleted later by the main loop, because one of their events may be in progress.
    std::unique_ptr<DocumentWindow> makeWindow(ViewController& controller) override;
    /// Shows the panel as a sheet of the document's window and returns at once. The window owns the panel.
    void presentVersions(std::shared_ptr<VersionsController> controller) override;

    /// Returns the window of `document`; the active window if `document` is `nullptr` or has no window;
    /// `nullptr` if there is none.
    QWidget* windowFor(const DocumentIdentity* document) const;

private:
    /// The window as the controllers own it.
    class Window;

    AppDelegate& app_;
    const Platform& platform_;
    /// The windows that exist, in the order in which they were made. Not owned.
    std::vector<DocumentMainWindow*> windows_;
};

} // namespace tabulon
