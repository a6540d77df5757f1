// The program around the application: its main loop, and what the desktop needs around each request.
#pragma once

#include "platform/SingleInstance.h"

namespace tabulon {

class Document;

class ProgramHost {
public:
    virtual ~ProgramHost() = default;

    /// Ends the main loop, after the last document was closed or the session ended.
    virtual void stop() = 0;

    /// Returns true while no request from outside may be performed, such as while an alert waits for an
    /// answer. When that is over the program calls `RequestQueue::performSoon`.
    virtual bool mustWait() const = 0;

    /// Called before each request, so that windows may come to the front.
    virtual void willPerform(const LaunchRequest& request) = 0;
    /// Called after each request. `current` is the current document then, or `nullptr`.
    virtual void didPerform(const LaunchRequest& request, const Document* current) = 0;
};

} // namespace tabulon
