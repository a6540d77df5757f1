// One running program per session: who is the first, and how a later start hands over what it was asked for.
// What is done with it is decided in app/.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace tabulon {

/// What a start of the program, or the desktop, asks of the running one.
struct LaunchRequest {
    enum class Kind { Activate, Open, NewDocument };

    Kind kind = Kind::Activate;
    /// For Open: absolute URIs.
    std::vector<std::string> uris = {};
    /// What the desktop gave out for the user's action, so that a window may come to the front: a token
    /// (Wayland) and a startup identifier (X11); empty for none.
    std::string activationToken = {};
    std::string startupId = {};
};

class SingleInstance {
public:
    enum class Role {
        First,  ///< this one runs; later starts find it
        Second, ///< another one runs
        Alone,  ///< there is no way to tell
    };
    enum class Answer {
        Taken,   ///< the first one does what was asked
        Gone,    ///< it has ended
        Silent,  ///< no answer yet
        Refused, ///< what has the name does not understand
    };

    virtual ~SingleInstance() = default;

    /// Asks to be the first. Of several that ask at the same moment one becomes it.
    virtual Role claim() = 0;

    /// Sends the request to the first one, without waiting. Only after `claim` gave Second.
    virtual void handOver(const LaunchRequest& request) = 0;

    /// Waits for the answer to what was handed over; may be called again after Silent.
    virtual Answer waitForAnswer(std::chrono::milliseconds patience) = 0;

    /// Is the first one no longer: the next start runs by itself, and requests on their way find nobody.
    virtual void release() = 0;

    /// Called from the main loop for each request that comes to the first one. Whoever sent it has its answer
    /// when this returns.
    std::function<void(LaunchRequest)> requested;
};

} // namespace tabulon
