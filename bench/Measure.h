// Measurement of processor time and memory. The *Rows.cpp files define what is measured, and the references.
#pragma once

#include <cstddef>
#include <limits>

namespace tabulon::bench {

/// Returns the processor time of this process in seconds, user and kernel. All operations use one thread, so
/// it is their duration on an idle machine.
double processorSeconds();

/// Returns the processor time in seconds of the fastest of `runs` calls of `work`, which other processes
/// disturb least. The result of `work` is destroyed after the clock has stopped. Returns infinity if `runs`
/// is not positive.
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

/// Returns the bytes of resident anonymous memory of the process, from /proc; mapped files do not count.
/// Returns 0 where that cannot be read.
std::size_t residentAnonymousBytes();

} // namespace tabulon::bench
