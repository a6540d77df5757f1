// What the running program was asked from outside and has not done yet. Each request is answered when it
// comes and done a little later, so that nobody takes a program for dead that is reading a large file or
// showing an alert.
#pragma once

#include "platform/SingleInstance.h"

#include <deque>
#include <functional>

namespace tabulon {

class AppDelegate;

class RequestQueue {
public:
    /// `app` must live longer.
    explicit RequestQueue(AppDelegate& app) : app_(app) {}

    /// True while nothing may happen behind the user's back, such as while an alert waits for an answer.
    std::function<bool()> mustWait;
    /// Called around each request, for what the desktop needs to let windows come to the front.
    std::function<void(const LaunchRequest&)> willPerform;
    std::function<void(const LaunchRequest&)> didPerform;

    void add(LaunchRequest request) { pending_.push_back(std::move(request)); }
    bool isEmpty() const { return pending_.empty(); }

    /// Does what has come, in the order in which it came, as far as it may now.
    void performPending();

private:
    AppDelegate& app_;
    std::deque<LaunchRequest> pending_;
    bool performing_ = false;
};

} // namespace tabulon
