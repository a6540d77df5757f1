#include "host/Host.h"

#include "bridge/BridgeMessages.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace tabulon {
namespace {

constexpr std::size_t kMostClients = 16;
constexpr std::size_t kMostUnsentBytes = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kReadBytes = std::size_t{64} * 1024;

tl::unexpected<Error> systemFailure(const char* what) {
    return failure(std::string(what) + ": " + std::strerror(errno) + ".");
}

bool isOfThisUser(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

// Reads what is there. Returns false at the end and after an error.
bool readSome(int descriptor, FrameReader& reader) {
    char bytes[kReadBytes];
    const ssize_t count = read(descriptor, bytes, sizeof bytes);
    if (count > 0)
        reader.add({bytes, static_cast<std::size_t>(count)});
    return count > 0 || (count < 0 && (errno == EINTR || errno == EAGAIN));
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
}

Descriptor::~Descriptor() {
    if (number_ >= 0)
        close(number_);
}

Result<Host> Host::listen(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return failure("The path of the socket is too long.");
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (socket.number() < 0)
        return systemFailure("Cannot make a socket");
    const mode_t before = umask(0177);
    const int bound = bind(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    umask(before);
    if (bound != 0)
        return systemFailure("Cannot make the socket");
    if (::listen(socket.number(), static_cast<int>(kMostClients)) != 0) {
        unlink(path.c_str());
        return systemFailure("Cannot listen");
    }
    return Host(path, std::move(socket));
}

Host::~Host() {
    if (socket_.number() >= 0)
        unlink(path_.c_str());
}

void Host::run(int input, int output) {
    while (true) {
        std::vector<pollfd> polled = descriptors(input);
        if (poll(polled.data(), polled.size(), -1) < 0 && errno != EINTR)
            return;
        if (polled[0].revents && !readBrowser(input))
            return;
        if (polled[1].revents)
            acceptClient();
        for (const pollfd& entry : polled) {
            const auto found = std::find_if(clients_.begin(), clients_.end(), [&](const auto& client) {
                return client.second.socket.number() == entry.fd;
            });
            if (found == clients_.end() || entry.revents == 0)
                continue;
            const bool goesOn = !(entry.revents & (POLLIN | POLLHUP | POLLERR)) ||
                                readClient(found->first, found->second, output);
            if (!goesOn || !writeClient(found->second))
                clients_.erase(found);
        }
    }
}

// The browser is the first one, the socket the second one.
std::vector<pollfd> Host::descriptors(int input) const {
    std::vector<pollfd> polled = {{.fd = input, .events = POLLIN, .revents = 0},
                                  {.fd = socket_.number(), .events = POLLIN, .revents = 0}};
    for (const auto& [number, client] : clients_)
        polled.push_back({.fd = client.socket.number(),
                          .events = static_cast<short>(client.unsent.empty() ? POLLIN : POLLIN | POLLOUT),
                          .revents = 0});
    return polled;
}

void Host::acceptClient() {
    Descriptor socket(accept4(socket_.number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (socket.number() < 0 || clients_.size() >= kMostClients || !isOfThisUser(socket.number()))
        return;
    clients_.emplace(++lastClient_, Client{.socket = std::move(socket), .unsent = {}});
}

bool Host::readBrowser(int input) {
    if (!readSome(input, replies_))
        return false;
    while (const std::optional<std::string> message = replies_.next()) {
        const Result<RepliedClient> replied = replyOfClient(*message);
        const auto client = replied ? clients_.find(replied->client) : clients_.end();
        if (client == clients_.end())
            continue; // it has not waited
        client->second.unsent += frameOf(replied->reply);
        if (!writeClient(client->second) || client->second.unsent.size() > kMostUnsentBytes)
            clients_.erase(client);
    }
    return !replies_.isBroken();
}

bool Host::readClient(std::int64_t number, Client& client, int output) {
    if (!readSome(client.socket.number(), client.requests))
        return false;
    while (const std::optional<std::string> message = client.requests.next()) {
        const Result<std::string> request = requestOfClient(number, *message);
        if (!request || !writeAll(output, frameOf(*request)))
            return false;
    }
    return !client.requests.isBroken();
}

bool Host::writeClient(Client& client) {
    while (!client.unsent.empty()) {
        const ssize_t count =
            send(client.socket.number(), client.unsent.data(), client.unsent.size(), MSG_NOSIGNAL);
        if (count < 0)
            return errno == EAGAIN || errno == EINTR;
        client.unsent.erase(0, static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace tabulon
