// Timers whose time a test advances.
#pragma once

#include "platform/Timers.h"

#include <cstdint>
#include <list>

namespace tabulon {

/// The timers must not outlive this object.
class FakeTimers : public Timers {
public:
    std::unique_ptr<Timer> after(double seconds, Work work) override {
        return add(seconds, 0, std::move(work));
    }
    std::unique_ptr<Timer> every(double seconds, Work work) override {
        return add(seconds, seconds, std::move(work));
    }

    /// Advances the time and calls the work that is due, in the order of its time. Work may call this again.
    void advance(double seconds);
    /// Returns the number of running timers.
    std::size_t running() const { return entries_.size(); }

private:
    struct Entry {
        std::uint64_t number;
        double due;
        double interval; // 0 for a timer that is called once
        Work work;
    };
    class Handle;

    std::unique_ptr<Timer> add(double seconds, double interval, Work work);
    void stop(std::uint64_t number);

    std::list<Entry> entries_;
    double now_ = 0;
    std::uint64_t lastNumber_ = 0;
};

} // namespace tabulon
