// The native-messaging host: passes messages between the browser, which has started it, and the programs that
// connect to its socket.
#pragma once

#include "base/Error.h"
#include "bridge/BridgeFrames.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

struct pollfd;

namespace tabulon {

/// A file descriptor that its owner closes; -1 for none.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    int number() const { return number_; }

private:
    int number_;
};

/// Passes messages on until the browser closes its end. Only processes of the same user may connect.
class Host {
public:
    /// Listens on a new socket at `path`, which only this user can open. Fails with a sentence if the path is
    /// too long, exists, or cannot be made.
    static Result<Host> listen(const std::string& path);
    Host(Host&&) = default;
    Host& operator=(Host&&) = delete;
    /// Removes the socket.
    ~Host();

    /// Reads messages of the browser from `input` and writes those for it to `output`. Returns when `input`
    /// ends, or the browser sends a message that is too long.
    void run(int input, int output);

private:
    /// A program that is connected.
    struct Client {
        Descriptor socket;
        FrameReader requests{kMostRequestBytes};
        std::string unsent; // bytes of replies
    };

    Host(std::string path, Descriptor socket) : path_(std::move(path)), socket_(std::move(socket)) {}

    std::vector<pollfd> descriptors(int input) const;
    void acceptClient();
    /// Each returns false if the connection has ended.
    bool readBrowser(int input);
    bool readClient(std::int64_t number, Client& client, int output);
    static bool writeClient(Client& client);

    std::string path_;
    Descriptor socket_;
    FrameReader replies_{kMostReplyBytes};
    std::map<std::int64_t, Client> clients_;
    std::int64_t lastClient_ = 0;
};

} // namespace tabulon
