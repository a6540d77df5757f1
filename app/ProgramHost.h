// The program around the application: its main loop, and what the desktop requires around each request.
#pragma once

#include "platform/SingleInstance.h"

namespace tabulon {

class Document;

/// Implemented by the desktop program.
class ProgramHost {
public:
    virtual ~ProgramHost() = default;

    /// Ends the main loop, after the last document was closed or the session ended.
    virtual void stop() = 0;

    /// Returns true while no request from outside may be performed, such as while an alert waits for an
    /// answer. The host calls `RequestQueue::performSoon` when that has ended.
    virtual bool mustWait() const = 0;

    /// Called before each request, so that the desktop lets windows come to the front.
    virtual void willPerform(const LaunchRequest& request) = 0;
    /// Called after each request. `current` is the current document at that time, or `nullptr`.
    virtual void didPerform(const LaunchRequest& request, const Document* current) = 0;

    /// Shows the window in which the user connects browsers, or brings it to the front.
    virtual void showBrowserConnections() = 0;
};

} // namespace tabulon
