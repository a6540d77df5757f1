// The self-test of a connection to a browser: it follows the way of a message, and returns the first hop that
// fails.
#pragma once

#include "app/BrowserConnections.h"

#include <string>

namespace tabulon {

/// The hops of a message, in their order.
enum class ConnectionHop {
    Installed,      ///< the browser is not installed
    Sandbox,        ///< the browser is a snap or a flatpak and cannot start the host
    HostMissing,    ///< tabulon-host does not exist
    HostExecutable, ///< the user may not execute tabulon-host
    Manifest,       ///< the browser has no manifest for this host
    Running,        ///< the browser does not run
    Extension,      ///< the browser runs, and its extension is not connected
    Permission,     ///< the user has not allowed the browser, so nothing was sent
    Connection,     ///< the browser ended or closed the connection
    Answer,         ///< the extension did not reply in time
    Reply,          ///< the reply could not be understood, or is a refusal
    Protocol,       ///< the extension has another version of the protocol
    Complete,       ///< every hop works
};

/// The result of the test.
struct ConnectionTest {
    /// The hop that fails, or Complete.
    ConnectionHop hop;
    /// The version of the extension for Protocol and Complete, else empty.
    std::string extension = {};

    bool operator==(const ConnectionTest&) const = default;
};

/// The most seconds that the test waits for each message of the browser.
inline constexpr double kSelfTestSeconds = 3;

/// Returns the result for a browser. Sends one message to a connected browser that the user has allowed, and
/// waits for its reply; sends nothing to any other.
ConnectionTest testConnection(const BrowserConnections& connections, const FoundBrowser& found);

} // namespace tabulon
