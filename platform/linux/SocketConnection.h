// One connection to a host of the bridge over its socket.
#pragma once

#include "bridge/BridgeFrames.h"
#include "platform/BrowserBridge.h"

#include <memory>
#include <string>

namespace tabulon {

/// See platform/BrowserBridge.h for the contracts. A send fails after two seconds in which the host does not
/// read.
class SocketConnection : public BridgeConnection {
public:
    /// Returns a connection to the process of this user that listens at `path`, or nullptr if there is none.
    /// Removes a socket at which no process listens. Also returns nullptr for a path of more than 107 bytes,
    /// and for a process that does not accept the connection within two seconds.
    static std::unique_ptr<SocketConnection> connect(const std::string& path);
    /// Closes the socket.
    ~SocketConnection() override;
    SocketConnection(const SocketConnection&) = delete;
    SocketConnection& operator=(const SocketConnection&) = delete;

    Result<void> send(std::string_view message) override;
    Result<std::optional<std::string>> receive(double seconds) override;

private:
    /// Takes over the socket.
    explicit SocketConnection(int socket) : socket_(socket) {}

    const int socket_;
    FrameReader messages_{kMostReplyBytes};
};

} // namespace tabulon
