// The requests from outside, and the files opened by the user, that have not been performed. A request is
// answered when it arrives and performed later from the main loop, so that its sender does not time out while
// the program reads a large file or shows an alert. One alert lists all files that cannot be opened, after
// the last request.
#pragma once

#include "platform/SingleInstance.h"
#include "platform/Timers.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace tabulon {

/// Performs the requests of a queue.
class RequestPerformer {
public:
    virtual ~RequestPerformer() = default;
    /// Returns true while no request from outside may be performed, such as while an alert waits for an
    /// answer.
    virtual bool mustWait() const = 0;
    /// Performs one request. It has at most one file.
    virtual void performRequest(const LaunchRequest& request) = 0;
};

/// The queue. A request with several files is split into one for each file.
class RequestQueue : private RequestReceiver {
public:
    /// Becomes the receiver of the requests to `instance`. Requires: the arguments outlive this object.
    RequestQueue(RequestPerformer& performer, SingleInstance& instance, Timers& timers);

    /// Appends a request, as one from outside, and calls `performSoon`.
    void add(LaunchRequest request);
    /// Appends files that the user opens in the program, as paths or URIs, and calls `performSoon`. They are
    /// performed before all requests from outside, and while `mustWait` is true.
    void open(const std::vector<std::string>& locations);

    /// Performs the requests from the main loop, in their order, as far as they need not wait. Called also
    /// when `mustWait` has become false.
    void performSoon();

    /// Returns whether a request has not been performed. Closing the last document does not end the program
    /// then.
    bool hasMore() const { return !pending_.empty() || !opened_.empty(); }

    /// Returns whether a request has arrived from outside.
    bool wasUsed() const { return used_; }

private:
    void requestArrived(LaunchRequest request) override;
    /// Returns the queue whose first request is performed next, or `nullptr`.
    std::deque<LaunchRequest>* next();
    /// Performs one request.
    void performNext();

    RequestPerformer& performer_;
    Timers& timers_;
    std::unique_ptr<Timer> timer_;
    std::deque<LaunchRequest> opened_; // by the user, in the program
    std::deque<LaunchRequest> pending_;
    /// Whether a request is being performed.
    bool performing_ = false;
    /// Whether a request has arrived from outside.
    bool used_ = false;
};

} // namespace tabulon
