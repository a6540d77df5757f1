#include "platform/linux/SocketBridge.h"

#include "base/Browsers.h"
#include "bridge/BridgeFrames.h"
#include "bridge/BridgePlaces.h"
#include "platform/linux/Processes.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace tabulon {
namespace {

namespace fs = std::filesystem;
using SteadyClock = std::chrono::steady_clock;

constexpr std::size_t kReadBytes = std::size_t{64} * 1024;
constexpr int kMostSecondsToSend = 2;

class SocketConnection : public BridgeConnection {
public:
    explicit SocketConnection(int socket) : socket_(socket) {}
    ~SocketConnection() override { close(socket_); }
    SocketConnection(const SocketConnection&) = delete;
    SocketConnection& operator=(const SocketConnection&) = delete;

    Result<void> send(std::string_view message) override {
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

    Result<std::optional<std::string>> receive(double seconds) override {
        const auto end = SteadyClock::now() + std::chrono::duration_cast<SteadyClock::duration>(
                                                  std::chrono::duration<double>(seconds));
        while (true) {
            if (std::optional<std::string> message = messages_.next())
                return message;
            if (messages_.isBroken())
                return failure("The browser has sent too long a message.");
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - SteadyClock::now()).count();
            pollfd polled{.fd = socket_, .events = POLLIN, .revents = 0};
            if (left <= 0 || poll(&polled, 1, static_cast<int>(left)) == 0)
                return std::nullopt;
            char bytes[kReadBytes];
            const ssize_t count = recv(socket_, bytes, sizeof bytes, 0);
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return hasEnded();
            messages_.add({bytes, static_cast<std::size_t>(count)});
        }
    }

private:
    static tl::unexpected<Error> hasEnded() { return failure("The browser has ended."); }

    const int socket_;
    FrameReader messages_{kMostReplyBytes};
};

bool isOfThisUser(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

// Returns -1 if no process listens there, after it has removed the socket, or the process is another user's.
int connectedSocket(const fs::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string name = path.string();
    if (name.size() >= sizeof address.sun_path)
        return -1;
    std::memcpy(address.sun_path, name.c_str(), name.size() + 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return -1;
    // A process that was stopped neither accepts nor reads.
    const timeval mostTime{.tv_sec = kMostSecondsToSend, .tv_usec = 0};
    setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &mostTime, sizeof mostTime);
    const bool isConnected =
        ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    if (isConnected && isOfThisUser(socket))
        return socket;
    if (!isConnected && errno == ECONNREFUSED)
        unlink(name.c_str());
    close(socket);
    return -1;
}

std::string identifierOfProgram(const std::string& program) {
    for (const Browser& browser : browsers())
        if (std::ranges::find(browser.processes, program) != browser.processes.end())
            return std::string(browser.identifier);
    return program;
}

struct Socket {
    fs::path path;
    BridgeSocketName name;
};

std::vector<Socket> socketsIn(const std::string& folder) {
    std::vector<Socket> sockets;
    std::error_code problem;
    for (fs::directory_iterator entry(folder, problem); !problem && entry != fs::directory_iterator();
         entry.increment(problem))
        if (const auto name = socketNameIn(entry->path().filename().string()))
            sockets.push_back({entry->path(), *name});
    return sockets;
}

// Returns how many windows are above the topmost one of the process; the number of all windows if it has
// none.
std::size_t windowsAbove(unsigned process, const std::vector<ManagedWindow>& stacked) {
    const auto topmost = std::find_if(stacked.rbegin(), stacked.rend(),
                                      [&](const ManagedWindow& window) { return window.pid == process; });
    return static_cast<std::size_t>(topmost - stacked.rbegin());
}

} // namespace

std::vector<ConnectedBrowser> SocketBridge::connectedBrowsers() {
    std::vector<ConnectedBrowser> connected;
    for (const Socket& socket : socketsIn(folder_))
        if (const std::string program = programOfProcess(socket.name.browser); !program.empty())
            connected.push_back({identifierOfProgram(program), socket.name.browser});
        else
            unlink(socket.path.c_str()); // the browser has ended
    if (connected.size() > 1) {
        const std::vector<ManagedWindow> stacked = X11Windows().stackedWindows();
        std::ranges::stable_sort(connected, {}, [&](const ConnectedBrowser& browser) {
            return windowsAbove(browser.process, stacked);
        });
    }
    return connected;
}

std::unique_ptr<BridgeConnection> SocketBridge::connect(const ConnectedBrowser& browser) {
    for (const Socket& socket : socketsIn(folder_)) {
        if (socket.name.browser != browser.process)
            continue;
        if (const int number = connectedSocket(socket.path); number >= 0)
            return std::make_unique<SocketConnection>(number);
    }
    return nullptr;
}

} // namespace tabulon
