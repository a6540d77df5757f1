#include "app/RequestQueue.h"

#include <utility>

namespace tabulon {

RequestQueue::RequestQueue(RequestPerformer& performer, SingleInstance& instance, Timers& timers)
    : performer_(performer), timers_(timers) {
    instance.deliverTo(*this);
}

void RequestQueue::requestArrived(LaunchRequest request) {
    used_ = true;
    add(std::move(request));
}

void RequestQueue::open(const std::vector<std::string>& locations) {
    for (const std::string& location : locations)
        opened_.push_back({.kind = LaunchRequest::Kind::Open, .uris = {location}});
    performSoon();
}

// Each file is a request of its own. The main loop runs between two of them, so the end of the session need
// not wait for all.
void RequestQueue::add(LaunchRequest request) {
    const std::vector<std::string> uris = std::exchange(request.uris, {});
    for (std::size_t i = 0; i + 1 < uris.size(); ++i)
        pending_.push_back({.kind = request.kind, .uris = {uris[i]}});
    if (!uris.empty())
        request.uris = {uris.back()};
    pending_.push_back(std::move(request));
    performSoon();
}

void RequestQueue::performSoon() {
    timer_ = timers_.after(0, [this] { performNext(); });
}

// Returns the queue whose first request is performed next: the user's files before requests from outside.
// Returns `nullptr` if both are empty, or requests from outside must wait.
std::deque<LaunchRequest>* RequestQueue::next() {
    if (!opened_.empty())
        return &opened_;
    return pending_.empty() || performer_.mustWait() ? nullptr : &pending_;
}

// Performing may show an alert. While it is shown more requests may arrive, and this is called again.
void RequestQueue::performNext() {
    std::deque<LaunchRequest>* const requests = performing_ ? nullptr : next();
    if (!requests)
        return;
    performing_ = true;
    const LaunchRequest request = std::move(requests->front());
    requests->pop_front();
    performer_.performRequest(request);
    performing_ = false;
    if (next())
        performSoon();
}

} // namespace tabulon
