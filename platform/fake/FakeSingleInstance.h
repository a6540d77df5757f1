// Other running programs as a test wants them.
#pragma once

#include "platform/SingleInstance.h"

#include <deque>
#include <vector>

namespace tabulon {

/// Gives the roles and answers laid in, in order; the last of each holds on.
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

    std::deque<Role> roles = {Role::First};
    std::deque<Answer> answers = {Answer::Taken};
    int claims = 0;
    std::vector<LaunchRequest> handedOver;
    std::chrono::milliseconds waited{0};
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
