#include "opening/BridgeEvents.h"

#include "base/Browsers.h"
#include "opening/BridgeOperations.h"

#include <algorithm>

namespace tabulon {
namespace {

bool isBrowser(const ConnectedBrowser& connected, std::string_view identifier) {
    const Browser* browser = browserWithIdentifier(identifier);
    return connected.identifier == identifier ||
           (browser && browser == browserWithIdentifier(connected.identifier));
}

// An event that only a connected browser can answer.
bool needsAnswer(const AppEvent& event) {
    return event.eventIdentifier == FourCharCode("getd") || event.eventIdentifier == FourCharCode("ExJa") ||
           event.eventIdentifier == FourCharCode("dojs");
}

} // namespace

Result<AppEventReply> BridgeEvents::send(const AppEvent& event) {
    const std::optional<BridgeRequest> request = requestForEvent(event, ++lastId_);
    if (!request)
        return failure("The browser does not understand this event.");
    const std::unique_ptr<BridgeConnection> connection = connectionTo(event.application);
    if (!connection)
        return sendOtherwise(event, "The browser is not connected.");
    const Result<std::optional<BridgeResult>> result = ask(*connection, *request);
    if (!result)
        return sendOtherwise(event, result.error().message);
    if (!*result) // it may still do it
        return failure("The browser has not answered in time.");
    return event.waitsForReply ? replyToEvent(event, **result) : AppEventReply{};
}

std::unique_ptr<BridgeConnection> BridgeEvents::connectionTo(std::string_view identifier) {
    const auto browsers = bridge_.connectedBrowsers();
    const auto browser = std::ranges::find_if(
        browsers, [&](const ConnectedBrowser& connected) { return isBrowser(connected, identifier); });
    return browser == browsers.end() ? nullptr : bridge_.connect(*browser);
}

Result<AppEventReply> BridgeEvents::sendOtherwise(const AppEvent& event, const std::string& reason) {
    if (needsAnswer(event))
        return failure(reason);
    return otherwise_.send(event);
}

Result<std::optional<BridgeResult>> BridgeEvents::ask(BridgeConnection& connection,
                                                      const BridgeRequest& request) {
    if (const Result<void> sent = connection.send(jsonOf(request)); !sent)
        return tl::unexpected(sent.error());
    std::string text;
    while (true) {
        const Result<std::optional<std::string>> message = connection.receive(kMostSeconds);
        if (!message)
            return tl::unexpected(message.error());
        if (!*message)
            return std::nullopt;
        Result<BridgeReply> reply = replyFromJson(**message);
        if (!reply)
            return tl::unexpected(reply.error());
        if (reply->id != request.id)
            continue;
        if (!reply->error.empty())
            return failure(reply->message);
        text += reply->part ? *reply->part : reply->result.text;
        if (text.size() > kMostTextBytes)
            return failure("The text of the page is too long.");
        if (reply->part)
            continue;
        reply->result.text = std::move(text);
        return std::move(reply->result);
    }
}

} // namespace tabulon
