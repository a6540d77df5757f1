// Makes document windows, and finds the window of a document for alerts and panels.
#pragma once

#include "app/DocumentController.h"
#include "platform/Platform.h"

#include <vector>

class QWidget;

namespace tabulon {

class AppDelegate;
class DocumentMainWindow;

/// Must live longer than every window it made.
class QtWindows : public DocumentWindowMaker {
public:
    /// To be called once, before the first window is made. Both must live longer.
    void connectTo(AppDelegate& app, const Platform& platform);

    std::unique_ptr<DocumentWindow> makeWindow(ViewController& controller) override;
    void presentVersions(std::shared_ptr<VersionsController> controller) override;

    /// The window of `document`; for null, or when it has none, the window in front, or null.
    QWidget* windowFor(const Document* document) const;

private:
    class Window;

    AppDelegate* app_ = nullptr;
    const Platform* platform_ = nullptr;
    std::vector<DocumentMainWindow*> windows_;
};

} // namespace tabulon
