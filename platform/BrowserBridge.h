// The connections to running browsers, through the extension in each. The messages are in
// bridge/BridgeMessages.h.
#pragma once

#include "base/Error.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// A running browser whose extension is connected.
struct ConnectedBrowser {
    /// Its identifier in base/Browsers.h, or the file name of its program for an unknown one.
    std::string identifier;
    /// Its main process. Two profiles of one browser may be two processes.
    unsigned process;
};

/// One connection. Closed when it is destroyed.
class BridgeConnection {
public:
    virtual ~BridgeConnection() = default;

    /// Sends one message. Fails if the browser has ended.
    virtual Result<void> send(std::string_view message) = 0;
    /// Returns the next message, or `nullopt` if none has arrived after so many seconds. Processes no events
    /// meanwhile. Fails with a sentence if the browser has ended.
    virtual Result<std::optional<std::string>> receive(double seconds) = 0;
};

/// Called on the main thread.
class BrowserBridge {
public:
    virtual ~BrowserBridge() = default;

    /// Returns the browsers that are connected. Where the desktop knows the order of windows, those with a
    /// window above the others' come first.
    virtual std::vector<ConnectedBrowser> connectedBrowsers() = 0;
    /// Returns a connection, or nullptr if the browser has ended.
    virtual std::unique_ptr<BridgeConnection> connect(const ConnectedBrowser& browser) = 0;
};

} // namespace tabulon
