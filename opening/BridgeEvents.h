// Sending events to browsers over the bridge, and by another way where there is no bridge or the browser
// refuses.
#pragma once

#include "bridge/BridgeMessages.h"
#include "platform/BrowserBridge.h"
#include "platform/EventSender.h"

#include <string>

namespace tabulon {

/// Sends each event to the connected browser with the event's identifier; of several processes, to the one in
/// front. An event that shows an address is sent by `otherwise` if the browser is not connected or refuses
/// it. A question is not: it fails. So does an event without a reply in time, which the browser may still
/// perform.
class BridgeEvents : public EventSender {
public:
    /// The most seconds that an event waits for its reply.
    static constexpr double kMostSeconds = 5;
    /// The most bytes of a text from a browser.
    static constexpr std::size_t kMostTextBytes = std::size_t{64} * 1024 * 1024;

    /// Requires: the arguments outlive this object.
    BridgeEvents(BrowserBridge& bridge, EventSender& otherwise) : bridge_(bridge), otherwise_(otherwise) {}

    /// Fails with the sentence of the bridge or of `otherwise`. Processes no events while it waits.
    /// `kMostSeconds` is the limit for each message of a reply in parts.
    Result<AppEventReply> send(const AppEvent& event) override;

private:
    /// Returns a connection to the first process of the browser, in either spelling of its identifier, or
    /// nullptr if it is not connected.
    std::unique_ptr<BridgeConnection> connectionTo(std::string_view identifier);
    /// Sends the event by `otherwise`. A question fails with `reason` instead.
    Result<AppEventReply> sendOtherwise(const AppEvent& event, const std::string& reason);
    /// Returns the result, or `nullopt` if there is none in time. Fails if the browser refuses or ends.
    Result<std::optional<BridgeResult>> ask(BridgeConnection& connection, const BridgeRequest& request);

    BrowserBridge& bridge_;
    EventSender& otherwise_;
    /// The number of the last request. Replies with other numbers are ignored.
    std::int64_t lastId_ = 0;
};

} // namespace tabulon
