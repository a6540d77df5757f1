// Sending events to other applications, and the permission for it.
#pragma once

#include "base/Error.h"
#include "platform/AppEvent.h"

#include <string_view>

namespace tabulon {

/// Called on the main thread.
class EventSender {
public:
    virtual ~EventSender() = default;

    /// Sends the event. Returns the reply, or an empty one for an event that does not wait for it. Waits for
    /// at most the default time of the service. Fails with a sentence if the application cannot be reached,
    /// does not know the event or does not answer in time.
    virtual Result<AppEventReply> send(const AppEvent& event) = 0;
};

/// Whether the user may be asked for a permission that was neither granted nor denied yet.
enum class PermissionQuestion { Allowed, NotAllowed };

/// The user's permission to send events to an application. Called on the main thread.
class AutomationPermission {
public:
    virtual ~AutomationPermission() = default;

    /// Returns whether events may be sent to this application. May ask the user and wait for the answer if
    /// `question` allows it; otherwise a permission that was not granted yet is a denied one.
    virtual bool mayAutomate(std::string_view application, PermissionQuestion question) = 0;
};

} // namespace tabulon
