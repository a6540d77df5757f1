#include "app/RequestQueue.h"

#include "app/AppDelegate.h"

namespace tabulon {

RequestQueue::RequestQueue(AppDelegate& app, SingleInstance& instance, Timers& timers)
    : app_(app), timers_(timers) {
    instance.requested = [this](LaunchRequest request) {
        used_ = true;
        pending_.push_back(std::move(request));
        performSoon();
    };
    app_.willOpenMore = [this] { return !pending_.empty(); };
}

void RequestQueue::performSoon() {
    timer_ = timers_.after(0, [this] { performPending(); });
}

// Performing may show an alert, while which more requests come and this is called again.
void RequestQueue::performPending() {
    while (!performing_ && !pending_.empty() && !(mustWait && mustWait())) {
        performing_ = true;
        const LaunchRequest request = std::move(pending_.front());
        pending_.pop_front();
        if (willPerform)
            willPerform(request);
        app_.performRequest(request);
        if (didPerform)
            didPerform(request);
        performing_ = false;
    }
}

} // namespace tabulon
