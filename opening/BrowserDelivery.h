// Bringing an application to the front, and showing an address in it. The rules for bookmarks are in
// BookmarkOpener.h.
#pragma once

#include "base/BaseServices.h"
#include "base/Browsers.h"
#include "base/Text.h"
#include "platform/Alerts.h"
#include "platform/EventSender.h"
#include "platform/Workspace.h"

#include <string>
#include <string_view>

namespace tabulon {

/// The services that opening needs. Owns none of them.
struct OpeningServices {
    Workspace& workspace;
    EventSender& events;
    AutomationPermission& permission;
    Alerts& alerts;
    BaseServices base;
};

/// Shows addresses in browsers. Browsers are named by their identifiers, in either spelling; see
/// base/Browsers.h. Every other application is sent the event that all applications understand. An event that
/// fails is not reported. Addresses are passed on as they are.
class BrowserDelivery {
public:
    /// Requires: the services outlive this object.
    explicit BrowserDelivery(const OpeningServices& services) : services_(services) {}

    /// Returns the identifier of the desktop's browser; "com.apple.Safari" if there is none.
    std::string defaultBrowser() const;

    /// Brings the application to the front, and starts it if it does not run or the desktop does not bring it
    /// to the front. Asks for the permission before, if it is not known. Shows an alert if it cannot be
    /// started.
    void bringForward(const std::string& application) const;

    /// Shows the address in the current tab of the frontmost window. A browser without a window chooses the
    /// place itself.
    void deliver(const std::string& browser, std::string_view url) const;
    /// Shows the address in a new window. An application that is no known browser chooses the place itself.
    void deliverInNewWindow(const std::string& browser, std::string_view url) const;
    /// Shows the address in a new tab where the browser has an event for that. Every other application
    /// chooses the place itself.
    void deliverInNewTab(std::string_view url, const std::string& browser) const;
    // Without the permission to send events to the browser, each of the three does the same as `systemOpen`.

    /// Opens the address with the desktop's application for its scheme. Shows an alert if that fails. Does
    /// nothing for a null text.
    void systemOpen(const Text& url) const;

private:
    /// Asks for the permission. Without it, opens the address with the desktop's application, and returns
    /// false.
    bool mayDeliver(const std::string& browser, std::string_view url) const;
    /// Returns whether the browser replies to the question for its window with an object.
    bool hasWindow(const std::string& browser) const;
    /// Sends an event whose result changes nothing.
    void send(const AppEvent& event) const;
    /// Sends the event that shows the address in the frontmost window.
    void showInFront(const std::string& browser, BrowserFamily family, std::string_view url) const;
    void showAlert(std::string_view message) const;

    OpeningServices services_;
};

} // namespace tabulon
