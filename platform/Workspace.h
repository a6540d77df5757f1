// The applications of the desktop: which one opens an address, which ones run, and bringing them to the
// front.
#pragma once

#include "base/Error.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tabulon {

/// An application as the desktop shows it.
struct Application {
    std::string name; ///< UTF-8
    std::string icon; ///< a name of the icon theme or an absolute path; empty if there is none
};

/// Applications are named by their identifiers: those of base/Browsers.h for browsers, for other
/// applications the name of the desktop entry. Addresses are passed on as they are. Called on the main
/// thread.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Returns the application that opens "http" addresses, or `nullopt` if the desktop has none.
    virtual std::optional<Application> defaultBrowser() = 0;
    /// Returns the identifier of the application that opens "http" addresses, or an empty text.
    virtual std::string defaultHandler() = 0;

    /// Returns the application of this identifier, or `nullopt` if it is not installed.
    virtual std::optional<Application> application(std::string_view identifier) = 0;

    /// Returns the identifier of the application whose window has the keyboard, or an empty text if there is
    /// none or it is unknown.
    virtual std::string frontmostApplication() = 0;
    /// Returns whether the application runs.
    virtual bool isRunning(std::string_view identifier) = 0;
    /// Brings all windows of a running application to the front. Returns whether the desktop does it.
    virtual bool activate(std::string_view identifier) = 0;
    /// Starts the application, and does not wait until it runs. Fails if it is not installed or cannot be
    /// started.
    virtual Result<void> launch(std::string_view identifier) = 0;

    /// Opens an address with the application that the desktop has for its scheme. Fails with a sentence if
    /// there is none, it cannot be started, or `url` is no address.
    virtual Result<void> openURL(std::string_view url) = 0;
    /// Opens several addresses in one request with the application that opens "http" addresses. Fails if
    /// there is none or it cannot be started.
    virtual Result<void> openURLs(std::span<const std::string> urls) = 0;
};

} // namespace tabulon
