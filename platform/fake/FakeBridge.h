// Browsers that are connected, in memory.
#pragma once

#include "platform/BrowserBridge.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tabulon {

/// Browsers that reply with prepared messages.
class FakeBridge : public BrowserBridge {
public:
    /// A message of the browser; `nullopt` if it sends none in time.
    using Message = std::optional<std::string>;

    std::vector<ConnectedBrowser> connectedBrowsers() override { return browsers; }
    std::unique_ptr<BridgeConnection> connect(const ConnectedBrowser& browser) override {
        if (hasEnded)
            return nullptr;
        connectedTo.push_back(browser.process);
        return std::make_unique<Connection>(*this);
    }

    std::vector<ConnectedBrowser> browsers;
    /// Called with each request; returns the messages of the reply, in order. A browser ends after its last
    /// message.
    std::function<std::vector<Message>(const std::string& request)> reply;
    /// True if connecting fails.
    bool hasEnded = false;
    /// The requests, in order.
    std::vector<std::string> sent;
    /// The processes of the connections that were made, in order.
    std::vector<unsigned> connectedTo;

private:
    class Connection : public BridgeConnection {
    public:
        explicit Connection(FakeBridge& bridge) : bridge_(bridge) {}

        Result<void> send(std::string_view message) override {
            bridge_.sent.emplace_back(message);
            for (Message& each : bridge_.reply(std::string(message)))
                waiting_.push_back(std::move(each));
            return {};
        }
        Result<Message> receive(double /*seconds*/) override {
            if (waiting_.empty())
                return failure("The browser has ended.");
            Message message = std::move(waiting_.front());
            waiting_.pop_front();
            return message;
        }

    private:
        FakeBridge& bridge_;
        std::deque<Message> waiting_;
    };
};

} // namespace tabulon
