#include "platform/linux/SocketConnection.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>

namespace tabulon {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::size_t kBytesOfRead = std::size_t{64} * 1024;
constexpr int kMostSecondsToSend = 2;

tl::unexpected<Error> hasEnded() {
    return failure("The browser has ended.");
}

bool isOfThisUser(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

} // namespace

std::unique_ptr<SocketConnection> SocketConnection::connect(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return nullptr;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return nullptr;
    std::unique_ptr<SocketConnection> connection(new SocketConnection(socket));
    // A process that was stopped neither accepts nor reads.
    const timeval mostTime{.tv_sec = kMostSecondsToSend, .tv_usec = 0};
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &mostTime, sizeof mostTime);
    if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        if (errno == ECONNREFUSED)
            unlink(path.c_str());
        return nullptr;
    }
    return isOfThisUser(socket) ? std::move(connection) : nullptr;
}

SocketConnection::~SocketConnection() {
    close(socket_);
}

Result<void> SocketConnection::send(std::string_view message) {
    if (message.size() > kMostRequestBytes)
        return failure("The address is too long for a browser.");
    const std::string frame = frameOf(message);
    for (std::size_t sent = 0; sent < frame.size();) {
        const ssize_t count = ::send(socket_, frame.data() + sent, frame.size() - sent, MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return errno == EAGAIN ? failure("The browser does not read.") : hasEnded();
        sent += static_cast<std::size_t>(count);
    }
    return {};
}

Result<std::optional<std::string>> SocketConnection::receive(double seconds) {
    const auto end = SteadyClock::now() + std::chrono::duration_cast<SteadyClock::duration>(
                                              std::chrono::duration<double>(seconds));
    while (true) {
        if (std::optional<std::string> message = messages_.next())
            return message;
        if (messages_.isBroken())
            return failure("The browser has sent too long a message.");
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - SteadyClock::now()).count();
        pollfd polled{.fd = socket_, .events = POLLIN, .revents = 0};
        if (left <= 0)
            return std::nullopt;
        if (poll(&polled, 1, static_cast<int>(left)) <= 0) // at the end of the time, or for a signal
            continue;
        char bytes[kBytesOfRead];
        const ssize_t count = recv(socket_, bytes, sizeof bytes, 0);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return hasEnded();
        messages_.add({bytes, static_cast<std::size_t>(count)});
    }
}

} // namespace tabulon
