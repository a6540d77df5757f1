// The bridge to browsers over the sockets on which the native-messaging hosts listen.
#pragma once

#include "platform/BrowserBridge.h"
#include "platform/linux/X11Windows.h"

#include <string>

namespace tabulon {

/// See platform/BrowserBridge.h for the contracts. Removes the sockets of hosts that have ended. Speaks only
/// to processes of this user.
class SocketBridge : public BrowserBridge {
public:
    /// `folder` contains the sockets and need not exist. Its path is in the file system's encoding, and is
    /// short enough that the path of a socket has at most 107 bytes; no connection is made to a longer one.
    explicit SocketBridge(std::string folder) : folder_(std::move(folder)) {}

    /// Reads the folder in every call, and returns an empty list if it cannot be read. The order of windows
    /// is that of the X11 display; without one, the order is not specified. Removes the sockets whose browser
    /// is no process of this user any more.
    std::vector<ConnectedBrowser> connectedBrowsers() override;
    /// Returns a connection to the first host of the browser's process that accepts one. Removes a socket on
    /// which no process listens.
    std::unique_ptr<BridgeConnection> connect(const ConnectedBrowser& browser) override;

private:
    const std::string folder_;
};

} // namespace tabulon
