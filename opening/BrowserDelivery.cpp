#include "opening/BrowserDelivery.h"

#include "model/LinkType.h"
#include "opening/BrowserEvents.h"

namespace tabulon {
namespace {

constexpr std::string_view kOwnTabs = "de.icab.iCab"; // the only browser with an event for a new tab

BrowserFamily familyOf(std::string_view identifier) {
    const Browser* browser = browserWithIdentifier(identifier);
    return browser ? browser->family : BrowserFamily::Generic;
}

// Both spellings of a browser's identifier name one application.
bool isSameApplication(std::string_view a, std::string_view b) {
    return a == b || (browserWithIdentifier(a) && browserWithIdentifier(a) == browserWithIdentifier(b));
}

} // namespace

std::string BrowserDelivery::defaultBrowser() const {
    return browserID(0, services_.workspace.defaultHandler());
}

void BrowserDelivery::bringForward(const std::string& application) const {
    Workspace& workspace = services_.workspace;
    if (isSameApplication(workspace.frontmostApplication(), application))
        return;
    // After the question the program would be in front again.
    static_cast<void>(services_.permission.mayAutomate(application, PermissionQuestion::Allowed));
    if (workspace.isRunning(application) && workspace.activate(application))
        return;
    if (!workspace.launch(application))
        showAlert("Unable to launch application");
}

void BrowserDelivery::deliver(const std::string& browser, std::string_view url) const {
    if (!mayDeliver(browser, url))
        return;
    const BrowserFamily family = familyOf(browser);
    if (family == BrowserFamily::Generic || !hasWindow(browser))
        send(getURLEvent(browser, url));
    else
        showInFront(browser, family, url);
}

void BrowserDelivery::deliverInNewWindow(const std::string& browser, std::string_view url) const {
    if (!mayDeliver(browser, url))
        return;
    const BrowserFamily family = familyOf(browser);
    if (family == BrowserFamily::Generic)
        return send(getURLEvent(browser, url));
    if (family == BrowserFamily::URLSuite)
        return send(suiteEvent(browser, url, SuiteWindow::NewWindow));
    send(makeWindowEvent(browser, family));
    showInFront(browser, family, url);
}

void BrowserDelivery::deliverInNewTab(std::string_view url, const std::string& browser) const {
    if (!mayDeliver(browser, url))
        return;
    send(browser == kOwnTabs ? suiteEvent(browser, url, SuiteWindow::NewTab) : getURLEvent(browser, url));
}

void BrowserDelivery::systemOpen(const Text& url) const {
    if (!url.isNull() && !services_.workspace.openURL(url.view()))
        showAlert("Bookmark URL could not be opened.");
}

bool BrowserDelivery::mayDeliver(const std::string& browser, std::string_view url) const {
    if (services_.permission.mayAutomate(browser, PermissionQuestion::Allowed))
        return true;
    systemOpen(Text(url));
    return false;
}

bool BrowserDelivery::hasWindow(const std::string& browser) const {
    const Result<AppEventReply> reply = services_.events.send(getWindowEvent(browser));
    return reply && !reply->errorNumber && reply->directObject &&
           std::holds_alternative<ObjectSpecifier>(*reply->directObject);
}

void BrowserDelivery::send(const AppEvent& event) const {
    static_cast<void>(services_.events.send(event));
}

void BrowserDelivery::showInFront(const std::string& browser, BrowserFamily family,
                                  std::string_view url) const {
    send(family == BrowserFamily::URLSuite ? suiteEvent(browser, url, SuiteWindow::Frontmost)
                                           : setURLEvent(browser, family, url));
}

void BrowserDelivery::showAlert(std::string_view message) const {
    services_.alerts.runModal(
        Alert{.message = std::string(message), .buttons = {{services_.base.texts.text("OK")}}});
}

} // namespace tabulon
