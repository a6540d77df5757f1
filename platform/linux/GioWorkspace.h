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
    /// Reads the disk, as `defaultBrowser` and `defaultHandler` do.
    std::optional<Application> application(std::string_view identifier) override;
    /// Returns the identifier of a browser, or the class of the window for other applications.
    std::string frontmostApplication() override;
    /// Returns true if a process of this user runs one of the browser's programs; for other applications, the
    /// program in the command of the desktop entry. False if such an application is not installed. Linear in
    /// the number of processes.
    bool isRunning(std::string_view identifier) override;
    /// Returns false if the application has no window on the display. The request to the window manager has
    /// no reply.
    bool activate(std::string_view identifier) override;
    /// Leaves the start to the launcher. Fails only if the application is not installed.
    Result<void> launch(std::string_view identifier) override;
    /// Leaves the start to the launcher. Fails also for an address that cannot be an argument
    /// (AddressCommands.h). The scheme may be in any case.
    Result<void> openURL(std::string_view url) override;
    /// Fails also if one of the addresses cannot be an argument, and opens none of them then.
    Result<void> openURLs(std::span<const std::string> urls) override;

private:
    /// Returns the windows of the X11 display. Connects again if the connection has ended. Not called in a
    /// Wayland session.
    const X11Windows& windows();

    BrowserLauncher& launcher_;
    std::unique_ptr<X11Windows> windows_; // connected at the first use
};

} // namespace tabulon
