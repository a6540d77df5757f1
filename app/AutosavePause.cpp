#include "app/AutosavePause.h"

#include <algorithm>

namespace tabulon {
namespace {

// A document that takes long to save is saved less often. The limit is for a clock that was set while it was
// saved.
constexpr double kPausePerSecondOfSaving = 20;
constexpr double kLongestPause = 60; // seconds

} // namespace

// The timer is not restarted with each change, because that would cost more than many changes do.
void AutosavePause::noteChange() {
    changedSinceStart_ = true;
    if (!timer_)
        start();
}

void AutosavePause::start() {
    changedSinceStart_ = false;
    timer_ = timers_.after(std::clamp(kPausePerSecondOfSaving * lastSeconds_, kSeconds, kLongestPause),
                           [this] { timerFired(); });
}

void AutosavePause::timerFired() {
    if (changedSinceStart_ && postponements_ < kMostPostponements) {
        ++postponements_;
        return start();
    }
    const std::function<void()> due = due_; // this object may be destroyed by the call
    due();
}

void AutosavePause::end() {
    timer_.reset();
    postponements_ = 0;
}

} // namespace tabulon
