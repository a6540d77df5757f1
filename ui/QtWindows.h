// Creating document windows, and finding the window of a document for alerts and panels.
#pragma once

#include "app/DocumentController.h"
#include "platform/Platform.h"

#include <vector>

class QWidget;

namespace tabulon {

class AppDelegate;
class DocumentMainWindow;

/// Requires: it outlives every window that it has made.
class QtWindows : public DocumentWindowMaker {
public:
    /// Sets the application and the platform that windows use, and the icon of the program. Called once,
    /// before the first window is made. Requires: both outlive this object.
    void connectTo(AppDelegate& app, const Platform& platform);

    /// Returns a new window, not shown yet. Never `nullptr`. Requires: `connectTo` was called.
    std::unique_ptr<DocumentWindow> makeWindow(ViewController& controller) override;
    /// Shows the panel as a sheet and returns at once.
    void presentVersions(std::shared_ptr<VersionsController> controller) override;

    /// Returns the window of `document`; the active window if `document` is `nullptr` or has no window;
    /// `nullptr` if there is none.
    QWidget* windowFor(const Document* document) const;

private:
    /// The window as the controllers own it.
    class Window;

    AppDelegate* app_ = nullptr;
    const Platform* platform_ = nullptr;
    /// The windows that exist. Not owned.
    std::vector<DocumentMainWindow*> windows_;
};

} // namespace tabulon
