// The applications of the desktop: those that GIO finds in the desktop entries, the processes that run, and
// the windows of an X11 display.
#pragma once

#include "platform/Workspace.h"
#include "platform/linux/BrowserLauncher.h"
#include "platform/linux/X11Windows.h"

#include <memory>

namespace tabulon {

/// See platform/Workspace.h for the contracts. On displays other than X11 a program cannot learn which window
/// is in front: there `frontmostApplication` is empty, and `activate` returns true for every running
/// application, because a browser comes forward itself when it is passed an address.
class GioWorkspace : public Workspace {
public:
    /// Requires: the launcher outlives this object.
    explicit GioWorkspace(BrowserLauncher& launcher) : launcher_(launcher) {}

    std::optional<Application> defaultBrowser() override;
    std::string defaultHandler() override;
    std::optional<Application> application(std::string_view identifier) override;
    /// Returns the identifier of a browser, or the class of the window for other applications.
    std::string frontmostApplication() override;
    bool isRunning(std::string_view identifier) override;
    bool activate(std::string_view identifier) override;
    Result<void> launch(std::string_view identifier) override;
    Result<void> openURL(std::string_view url) override;
    Result<void> openURLs(std::span<const std::string> urls) override;

private:
    /// Returns the windows of the display; of a Wayland session none.
    const X11Windows& windows();

    BrowserLauncher& launcher_;
    std::unique_ptr<X11Windows> windows_; // connected at the first use
};

} // namespace tabulon
