// The applications that the desktop entries of this computer describe, as GIO finds them.
#pragma once

#include "platform/Workspace.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// An installed application.
struct InstalledApplication {
    /// The identifier of the browser in base/Browsers.h, or the name of the desktop entry without ".desktop".
    std::string identifier;
    /// Its name and icon. The icon may be missing.
    Application shown;
    /// The command that starts it, without addresses. In the encoding of the entry.
    std::vector<std::string> command;
    /// Whether the command takes several addresses. Otherwise each needs a process of its own.
    bool takesManyAddresses = false;
};

/// Returns the application of this identifier, or `nullopt` if it is not installed. For a browser without a
/// desktop entry, looks for its command in PATH. Reads the disk; GIO caches what it has read.
std::optional<InstalledApplication> installedApplication(std::string_view identifier);

/// Returns the application that opens addresses of this scheme, or `nullopt` if the desktop has none.
/// `scheme` is in small letters, without the colon.
std::optional<InstalledApplication> applicationForScheme(const std::string& scheme);

} // namespace tabulon
