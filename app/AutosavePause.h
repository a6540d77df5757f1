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
    /// Ends the pause without a call of `due`. The next change begins a new one.
    void end();
    /// Stores how long the last save took, in seconds. The next pause takes twenty times as long, but at
    /// least `kSeconds` and at most a minute.
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
    /// Whether the document was changed again during this pause.
    bool changedSinceStart_ = false;
    /// How often the end of the pause was postponed.
    int postponements_ = 0;
    /// How long the last save took; 0 before the first one.
    double lastSeconds_ = 0;
};

} // namespace tabulon
