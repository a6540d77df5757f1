// Timers on Qt's event loop.
#pragma once

#include "platform/Timers.h"

namespace tabulon {

/// Timers of the main thread's event loop. See platform/Timers.h for the contracts.
class QtTimers : public Timers {
public:
    /// While `mustWait` returns true, no work is called: that of `after` is postponed until it returns false,
    /// which is tested every 50 milliseconds, and that of `every` skips the interval. An empty function
    /// counts as false. What `mustWait` uses must exist as long as the timers.
    explicit QtTimers(std::function<bool()> mustWait = nullptr) : mustWait_(std::move(mustWait)) {}

    /// Calls `work` once after `seconds`, which are rounded down to milliseconds.
    std::unique_ptr<Timer> after(double seconds, Work work) override;
    /// Calls `work` every `seconds`, which are rounded down to milliseconds; for 0 in every round of the
    /// main loop.
    std::unique_ptr<Timer> every(double seconds, Work work) override;

private:
    std::function<bool()> mustWait_;
};

} // namespace tabulon
