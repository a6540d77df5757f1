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
    /// `folder` contains the sockets and need not exist.
    explicit SocketBridge(std::string folder) : folder_(std::move(folder)) {}

    std::vector<ConnectedBrowser> connectedBrowsers() override;
    std::unique_ptr<BridgeConnection> connect(const ConnectedBrowser& browser) override;

private:
    const std::string folder_;
};

} // namespace tabulon
