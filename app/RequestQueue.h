// What the running program was asked, from outside or by the user with several files, and has not done yet.
// Each request is answered when it arrives and performed later from the main loop, so that its sender does
// not time out while the program reads a large file or shows an alert. One alert lists all files that cannot
// be opened, after the last request.
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
    virtual void performRequest(const LaunchRequest& request) = 0;
};

class RequestQueue {
public:
    /// Takes the requests that reach `instance`. What is passed in must outlive this object.
    RequestQueue(RequestPerformer& performer, SingleInstance& instance, Timers& timers);

    /// Takes a request that comes from this program itself.
    void add(LaunchRequest request);
    /// Takes files that the user opens in the program, as paths or URIs. They come before all other requests
    /// and do not wait for `mustWait`.
    void open(const std::vector<std::string>& locations);

    /// Performs the requests from the main loop, in the order in which they came, as far as they need not
    /// wait. To be called when `mustWait` has become false.
    void performSoon();

    /// Returns true when a request has not been performed yet. Closing the last document does not end the
    /// program then.
    bool hasMore() const { return !pending_.empty() || !opened_.empty(); }

    /// Returns true when a request has come from outside since the start.
    bool wasUsed() const { return used_; }

private:
    std::deque<LaunchRequest>* next();
    void performNext();

    RequestPerformer& performer_;
    Timers& timers_;
    std::unique_ptr<Timer> timer_;
    std::deque<LaunchRequest> opened_; // by the user, in the program
    std::deque<LaunchRequest> pending_;
    bool performing_ = false;
    bool used_ = false;
};

} // namespace tabulon
