// A version of the single-instance service for tests, with prepared roles and answers of other processes.
#pragma once

#include "platform/SingleInstance.h"

#include <deque>
#include <vector>

namespace tabulon {

/// Returns the prepared roles and answers, in order. The last one of each is returned again and again. Does
/// not wait.
class FakeSingleInstance : public SingleInstance {
public:
    Role claim() override {
        ++claims;
        return next(roles);
    }
    void handOver(const LaunchRequest& request) override { handedOver.push_back(request); }
    Answer waitForAnswer(std::chrono::milliseconds patience) override {
        waited += patience;
        return next(answers);
    }
    void release() override { released = true; }
    /// Passes a request of another process to the receiver.
    void requestArrives(LaunchRequest request) { deliver(std::move(request)); }

    /// Not empty.
    std::deque<Role> roles = {Role::First};
    /// Not empty.
    std::deque<Answer> answers = {Answer::Taken};
    /// The number of calls of `claim`.
    int claims = 0;
    /// The requests that were sent, in order.
    std::vector<LaunchRequest> handedOver;
    /// The sum of the times for which `waitForAnswer` was called.
    std::chrono::milliseconds waited{0};
    /// True after `release`.
    bool released = false;

private:
    template <class Value>
    static Value next(std::deque<Value>& values) {
        const Value value = values.front();
        if (values.size() > 1)
            values.pop_front();
        return value;
    }
};

} // namespace tabulon
