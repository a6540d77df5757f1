// When a document is saved by itself: a few seconds after its last change.
#pragma once

#include "platform/Timers.h"

#include <functional>
#include <memory>
#include <utility>

namespace tabulon {

/// The pause between a change of one document and the automatic save.
class AutosavePause {
public:
    /// How long after a change a document is saved, in seconds, and how often further changes may postpone
    /// that. A document that takes long to save has a longer pause.
    static constexpr double kSeconds = 3;
    static constexpr int kMostPostponements = 9;

    /// `due` is called on the main thread when the pause has ended. It may destroy this object. Requires:
    /// `timers` outlives this object.
    AutosavePause(Timers& timers, std::function<void()> due) : timers_(timers), due_(std::move(due)) {}

    /// Called after each change of the document: begins the pause, or postpones its end. Constant time.
    void noteChange();
    /// Ends the pause without a call of `due`.
    void end();
    /// Stores how long the last save took, in seconds.
    void noteSaving(double seconds) { lastSeconds_ = seconds; }

private:
    /// Begins a pause.
    void start();
    /// Calls `due`, or begins another pause if there were further changes.
    void timerFired();

    Timers& timers_;
    std::function<void()> due_;
    /// `nullptr` while there is no pause.
    std::unique_ptr<Timer> timer_;
    bool changedSinceStart_ = false;
    int postponements_ = 0;
    double lastSeconds_ = 0;
};

} // namespace tabulon
