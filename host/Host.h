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
    /// Takes over the descriptor from the caller.
    explicit Descriptor(int number = -1) : number_(number) {}
    /// Takes over the descriptor of `other`, which has none afterwards.
    Descriptor(Descriptor&& other) noexcept;
    /// Exchanges the descriptors.
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor();

    /// Returns the descriptor, which stays owned by this object; -1 for none.
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
        /// Without waiting for the other end.
        Descriptor socket;
        /// The bytes that it has sent.
        FrameReader requests{kMostRequestBytes};
        std::string unsent; // bytes of replies
    };

    Host(std::string path, Descriptor socket) : path_(std::move(path)), socket_(std::move(socket)) {}

    /// Returns what to wait for: `input`, the socket, then the programs in the order of their numbers.
    std::vector<pollfd> descriptors(int input) const;
    /// Accepts a program that connects, or refuses it: one of another user, or one too many.
    void acceptClient();
    /// Reads what the browser has sent, and passes whole messages on to the programs that wait for them.
    /// Returns false at the end of `input`, and for a message that is too long.
    bool readBrowser(int input);
    /// Reads what a program has sent, and passes whole messages on to the browser. Returns false if the
    /// connection has ended, or has to end because of a message that is no JSON or too long.
    bool readClient(std::int64_t number, Client& client, int output);
    /// Sends as much as the program takes without waiting. Returns false if the connection has ended.
    static bool writeClient(Client& client);

    /// The path of the socket.
    std::string path_;
    Descriptor socket_;
    FrameReader replies_{kMostReplyBytes};
    /// By their numbers, which are never used again.
    std::map<std::int64_t, Client> clients_;
    std::int64_t lastClient_ = 0;
};

} // namespace tabulon
