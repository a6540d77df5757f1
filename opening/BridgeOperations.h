// What the bridge to browsers does for an event, and the reply that the event gets. Pure functions.
#pragma once

#include "bridge/BridgeMessages.h"
#include "platform/AppEvent.h"

#include <optional>

namespace tabulon {

/// Returns the request for an event, or `nullopt` for an event that the bridge does not serve. A script is
/// recognised by its exact text. `id` becomes the number of the request. Also returns `nullopt` for an event
/// that shows an address if the address is no text.
std::optional<BridgeRequest> requestForEvent(const AppEvent& event, std::int64_t id);

/// Returns the reply to an event from the result of its request. The question for a window is answered by
/// that window if there is one, else by an empty reply. Requires: `requestForEvent` returned a request.
AppEventReply replyToEvent(const AppEvent& event, const BridgeResult& result);

} // namespace tabulon
