// A single running process per session: determines which process is the first, and passes the requests of
// later processes to it. The requests are handled in app/.
#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {

/// A request to the running process, from a later start of the program or from the desktop.
struct LaunchRequest {
    enum class Kind { Activate, Open, NewDocument };

    Kind kind = Kind::Activate;
    /// For Open: absolute URIs.
    std::vector<std::string> uris = {};
    /// The token (Wayland) that the desktop has issued for the user's action, with which a window may be
    /// raised; empty if there is none.
    std::string activationToken = {};
    /// The startup identifier (X11) for the same purpose; empty if there is none.
    std::string startupId = {};
};

/// Receives the requests to the running process.
class RequestReceiver {
public:
    virtual ~RequestReceiver() = default;
    /// Called from the main loop for each request, also while an alert or a progress panel processes events.
    /// The sender gets its answer when this returns, so it must not wait for the user. The request is input
    /// of another process: its texts may be any UTF-8.
    virtual void requestArrived(LaunchRequest request) = 0;
};

/// Used on the main thread.
class SingleInstance {
public:
    enum class Role {
        First,  ///< this process is the first; later processes find it
        Second, ///< another process is the first
        Alone,  ///< processes cannot find each other, for example without a session bus
    };
    enum class Answer {
        Taken,   ///< the first process has accepted the request
        Gone,    ///< the first process has ended
        Silent,  ///< there is no answer yet
        Refused, ///< the process that has the program's name does not know the request
    };

    virtual ~SingleInstance() = default;

    /// Tries to make this process the first, and returns its role. If several processes try at the same time,
    /// exactly one becomes the first. May be called again, unless it has returned First.
    virtual Role claim() = 0;

    /// Sends the request to the first process and does not wait. Requires: `claim` has returned Second.
    virtual void handOver(const LaunchRequest& request) = 0;

    /// Waits up to `patience` for the answer to the request and returns it, or Silent. May be called again
    /// after Silent. May process events. Requires: `handOver` was called.
    virtual Answer waitForAnswer(std::chrono::milliseconds patience) = 0;

    /// Ends the role of the first process: the next start becomes the first, and requests that are still on
    /// their way fail with Gone. Does nothing for the other roles.
    virtual void release() = 0;

    /// Passes the requests to the first process to `receiver` from now on. Requests before that are answered
    /// and ignored. Requires: `receiver` exists as long as requests arrive.
    void deliverTo(RequestReceiver& receiver) { receiver_ = &receiver; }

protected:
    /// Passes a request to the receiver, if there is one.
    void deliver(LaunchRequest request) {
        if (receiver_)
            receiver_->requestArrived(std::move(request));
    }

private:
    RequestReceiver* receiver_ = nullptr; // not owned; nullptr until `deliverTo`
};

} // namespace tabulon
