#include "platform/linux/GioWorkspace.h"

#include "base/Ascii.h"
#include "base/Browsers.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/Processes.h"

#include <algorithm>
#include <cstdlib>

namespace tabulon {
namespace {

constexpr const char* kWebScheme = "http";

bool isWaylandSession() {
    const char* display = std::getenv("WAYLAND_DISPLAY");
    return display && *display;
}

// Browsers name the class of their windows after the program or the desktop entry.
bool isWindowOf(const Browser& browser, const ManagedWindow& window) {
    if (const std::string program = window.pid ? programOfProcess(window.pid) : ""; !program.empty())
        if (std::ranges::find(browser.processes, program) != browser.processes.end())
            return true;
    const auto isClass = [&](std::string_view name) {
        const std::string lowered = ascii::lowered(name);
        return lowered == window.instance || lowered == window.className;
    };
    return std::ranges::any_of(browser.desktopEntries, isClass) ||
           std::ranges::any_of(browser.executables, isClass);
}

bool isWindowOf(std::string_view identifier, const ManagedWindow& window) {
    if (const Browser* browser = browserWithIdentifier(identifier))
        return isWindowOf(*browser, window);
    return ascii::lowered(identifier) == window.className;
}

// Returns the scheme of an address in small letters, or an empty text if it has none.
std::string schemeOf(std::string_view url) {
    const std::size_t colon = url.find(':');
    if (colon == url.npos || colon == 0 || !ascii::isLetter(url[0]))
        return {};
    const std::string_view scheme = url.substr(0, colon);
    const bool isScheme = std::ranges::all_of(
        scheme, [](char c) { return ascii::isAlphanumeric(c) || c == '+' || c == '-' || c == '.'; });
    return isScheme ? ascii::lowered(scheme) : "";
}

} // namespace

const X11Windows& GioWorkspace::windows() {
    if (!windows_ || !windows_->isConnected())
        windows_ = std::make_unique<X11Windows>();
    return *windows_;
}

std::optional<Application> GioWorkspace::defaultBrowser() {
    const auto browser = applicationForScheme(kWebScheme);
    return browser ? std::optional(browser->shown) : std::nullopt;
}

std::string GioWorkspace::defaultHandler() {
    const auto browser = applicationForScheme(kWebScheme);
    return browser ? browser->identifier : "";
}

std::optional<Application> GioWorkspace::application(std::string_view identifier) {
    const auto installed = installedApplication(identifier);
    return installed ? std::optional(installed->shown) : std::nullopt;
}

std::string GioWorkspace::frontmostApplication() {
    if (isWaylandSession())
        return {};
    const ManagedWindow active = windows().activeWindow();
    if (active.window == 0)
        return {};
    for (const Browser& browser : browsers())
        if (isWindowOf(browser, active))
            return std::string(browser.identifier);
    return active.className;
}

bool GioWorkspace::isRunning(std::string_view identifier) {
    const Browser* browser = browserWithIdentifier(identifier);
    if (browser)
        return isProgramRunning(browser->processes);
    const auto installed = installedApplication(identifier);
    if (!installed)
        return false;
    const std::string& command = installed->command.front();
    const std::string_view program = std::string_view(command).substr(command.rfind('/') + 1);
    return isProgramRunning({&program, 1});
}

bool GioWorkspace::activate(std::string_view identifier) {
    if (isWaylandSession())
        return isRunning(identifier);
    std::vector<ManagedWindow> own;
    for (const ManagedWindow& window : windows().stackedWindows())
        if (isWindowOf(identifier, window))
            own.push_back(window);
    if (own.empty())
        return false;
    windows().bringToFront(own);
    return true;
}

Result<void> GioWorkspace::launch(std::string_view identifier) {
    const auto installed = installedApplication(identifier);
    if (!installed)
        return failure("The application is not installed.");
    launcher_.startSoon(*installed);
    return {};
}

Result<void> GioWorkspace::openURL(std::string_view url) {
    const std::string scheme = schemeOf(url);
    const auto handler = scheme.empty() ? std::nullopt : applicationForScheme(scheme);
    if (!handler)
        return failure("The desktop has no application for this address.");
    const std::string address(url);
    return launcher_.showSoon(*handler, {&address, 1}, Placement::BrowsersChoice);
}

Result<void> GioWorkspace::openURLs(std::span<const std::string> urls) {
    const auto browser = applicationForScheme(kWebScheme);
    if (!browser)
        return failure("The desktop has no web browser.");
    return launcher_.showSoon(*browser, urls, Placement::BrowsersChoice);
}

} // namespace tabulon
