#include "platform/linux/SocketBridge.h"

#include "base/Browsers.h"
#include "bridge/BridgePlaces.h"
#include "platform/linux/Processes.h"
#include "platform/linux/SocketConnection.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tabulon {
namespace {

namespace fs = std::filesystem;

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
        if (auto connection = SocketConnection::connect(socket.path.string()))
            return connection;
    }
    return nullptr;
}

} // namespace tabulon
