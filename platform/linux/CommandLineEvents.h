// The events of browsers, served by starting the browser with an address. A browser then reads it in the
// running process, if there is one.
#pragma once

#include "platform/EventSender.h"
#include "platform/linux/BrowserLauncher.h"

#include <set>
#include <string>

namespace tabulon {

/// Sends addresses only: a question, such as that for a window, fails. Events succeed as soon as the browser
/// is going to be started.
class CommandLineEvents : public EventSender {
public:
    /// Requires: the launcher outlives this object.
    explicit CommandLineEvents(BrowserLauncher& launcher) : launcher_(launcher) {}

    /// A new window is made with the address that follows in the next event for the same browser. Every other
    /// event for that browser ends this. Fails with a sentence for any other event without an address, for an
    /// application that is not installed, and for an address that cannot be an argument (AddressCommands.h).
    /// The reply is always empty.
    Result<AppEventReply> send(const AppEvent& event) override;

private:
    /// Passes the address to the launcher, for the event's application.
    Result<void> show(const AppEvent& event, const std::string& url, Placement placement);

    BrowserLauncher& launcher_;
    std::set<std::string, std::less<>> newWindows_; // the browsers whose next address is shown in one
};

/// Grants every permission: an address on a browser's command line needs none.
class CommandLinePermission : public AutomationPermission {
public:
    bool mayAutomate(std::string_view /*application*/, PermissionQuestion /*question*/) override {
        return true;
    }
};

} // namespace tabulon
