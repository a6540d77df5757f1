#include "app/RequestQueue.h"

#include "app/AppDelegate.h"

namespace tabulon {

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
