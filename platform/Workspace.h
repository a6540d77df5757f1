// The default applications of the desktop.
#pragma once

#include <optional>
#include <string>

namespace tabulon {

/// An application as the desktop shows it.
struct Application {
    std::string name; ///< UTF-8
    std::string icon; ///< a name of the icon theme or an absolute path; empty if there is none
};

/// Called on the main thread.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Returns the application that opens "http" addresses, or `nullopt` if the desktop has none.
    virtual std::optional<Application> defaultBrowser() = 0;
};

} // namespace tabulon
