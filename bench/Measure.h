// Clocks and scales: how long a piece of work takes, how much memory the process holds. What is measured and
// against what is in the *Rows.cpp files.
#pragma once

#include <cstddef>
#include <limits>

namespace tabulon::bench {

/// Seconds of processor time that this process has used, in user and kernel. All work here is done by one
/// thread, so it is the time that somebody waits on a machine with nothing else to do.
double processorSeconds();

/// Processor seconds of the fastest of `runs` calls of `work`, the measure that other programs on the machine
/// disturb least. What `work` returns is destroyed after the clock has stopped.
template <class Work>
double fastest(int runs, Work work) {
    double best = std::numeric_limits<double>::infinity();
    for (int run = 0; run < runs; ++run) {
        const double begin = processorSeconds();
        [[maybe_unused]] const auto result = work();
        const double seconds = processorSeconds() - begin;
        best = seconds < best ? seconds : best;
    }
    return best;
}

/// Bytes of memory that the process has for itself (files it has mapped do not count), from /proc.
std::size_t residentAnonymousBytes();

} // namespace tabulon::bench
