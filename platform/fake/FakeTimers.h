// Timers that a test moves by hand.
#pragma once

#include "platform/Timers.h"

#include <cstdint>
#include <list>

namespace tabulon {

class FakeTimers : public Timers {
public:
    std::unique_ptr<Timer> after(double seconds, Work work) override {
        return add(seconds, 0, std::move(work));
    }
    std::unique_ptr<Timer> every(double seconds, Work work) override {
        return add(seconds, seconds, std::move(work));
    }

    /// Lets time pass: calls what is due, in the order of its time.
    void advance(double seconds);
    /// How many timers run.
    std::size_t running() const { return entries_.size(); }

private:
    struct Entry {
        std::uint64_t number;
        double due;
        double interval; // 0 for once
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
