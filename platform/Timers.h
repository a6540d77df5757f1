// Timers on the main loop.
#pragma once

#include <functional>
#include <memory>

namespace tabulon {

/// Destroying it stops it.
class Timer {
public:
    virtual ~Timer() = default;
};

/// Work is called on the main thread, never from inside the call that made its timer. It may destroy its own
/// timer. Intervals are in seconds.
class Timers {
public:
    using Work = std::function<void()>;

    virtual ~Timers() = default;

    /// Calls `work` once, after `seconds`.
    [[nodiscard]] virtual std::unique_ptr<Timer> after(double seconds, Work work) = 0;
    /// Calls `work` every `seconds`.
    [[nodiscard]] virtual std::unique_ptr<Timer> every(double seconds, Work work) = 0;
};

} // namespace tabulon
