// Timers on Qt's event loop.
#pragma once

#include "platform/Timers.h"

namespace tabulon {

class QtTimers : public Timers {
public:
    /// What becomes due while `mustWait` says so is done a little later; null for never.
    explicit QtTimers(std::function<bool()> mustWait = nullptr) : mustWait_(std::move(mustWait)) {}

    std::unique_ptr<Timer> after(double seconds, Work work) override;
    std::unique_ptr<Timer> every(double seconds, Work work) override;

private:
    std::function<bool()> mustWait_;
};

} // namespace tabulon
