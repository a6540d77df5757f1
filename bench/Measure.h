// Clocks and scales: how long a piece of work takes, how much memory the process holds. What is measured and
// against what is in the *Rows.cpp files.
#pragma once

#include <chrono>
#include <cstddef>
#include <limits>

namespace tabulon::bench {

/// Seconds of the fastest of `runs` calls of `work`, the measure that other programs on the machine disturb
/// least. What `work` returns is destroyed after the clock has stopped.
template <class Work>
double fastest(int runs, Work work) {
    using Clock = std::chrono::steady_clock;
    double best = std::numeric_limits<double>::infinity();
    for (int run = 0; run < runs; ++run) {
        const Clock::time_point begin = Clock::now();
        [[maybe_unused]] const auto result = work();
        const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
        best = seconds < best ? seconds : best;
    }
    return best;
}

/// Bytes of memory that the process has for itself (files it has mapped do not count), from /proc.
std::size_t residentAnonymousBytes();

} // namespace tabulon::bench
