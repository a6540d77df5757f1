// Starting applications with addresses. Addresses for one application that arrive in the same turn of the
// main loop are passed on in one command, so that a browser that is still starting gets all of them.
#pragma once

#include "base/Error.h"
#include "platform/Timers.h"
#include "platform/linux/DesktopEntries.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tabulon {

/// Where a browser shows an address.
enum class Placement { BrowsersChoice, NewTab, NewWindow };

/// Starts processes that go on when this program ends. They have no standard streams.
class BrowserLauncher {
public:
    /// Without timers, nothing starts before `startPending` is called. Requires: the timers outlive this
    /// object.
    explicit BrowserLauncher(Timers* timers) : timers_(timers) {}

    /// Starts the application without an address, unless one for it follows before that.
    void startSoon(const InstalledApplication& application);
    /// Passes the addresses to the application soon. Browsers that know no such place choose it themselves.
    /// Fails for an address that cannot be an argument, and passes none then.
    Result<void> showSoon(const InstalledApplication& application, std::span<const std::string> addresses,
                          Placement placement);
    /// Starts everything that waits. Fails with the reason of the first command that could not be started,
    /// after it has tried all.
    Result<void> startPending();

private:
    // The addresses of one application with one placement, in order; empty for a start without one.
    struct Start {
        InstalledApplication application;
        Placement placement;
        std::vector<std::string> addresses;
    };

    void startPendingSoon();

    Timers* const timers_;
    std::unique_ptr<Timer> timer_;
    std::vector<Start> pending_;
};

} // namespace tabulon
