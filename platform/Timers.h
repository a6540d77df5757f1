// Timers of the main loop. The current time is in base/Clock.h.
#pragma once

#include <functional>
#include <memory>

namespace tabulon {

/// A running timer. Its destruction stops it. Must not outlive the Timers that made it.
class Timer {
public:
    virtual ~Timer() = default;
};

/// `work` is called on the main thread, never during the call that makes its timer. It may destroy its own
/// timer. Intervals are in seconds. Calls may be late.
class Timers {
public:
    using Work = std::function<void()>;

    virtual ~Timers() = default;

    /// Returns a timer that calls `work` once, after `seconds`; for 0 as soon as the main loop runs. Never
    /// nullptr. Requires: seconds >= 0.
    [[nodiscard]] virtual std::unique_ptr<Timer> after(double seconds, Work work) = 0;
    /// Returns a timer that calls `work` every `seconds`, first after `seconds`. Never nullptr. Requires:
    /// seconds > 0.
    [[nodiscard]] virtual std::unique_ptr<Timer> every(double seconds, Work work) = 0;
};

} // namespace tabulon
