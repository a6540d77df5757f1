// The alert sound, for commands that cannot be performed.
#pragma once

namespace tabulon {

/// Called on the main thread.
class Beeper {
public:
    virtual ~Beeper() = default;

    /// Plays the alert sound of the desktop and returns at once.
    virtual void beep() = 0;
};

} // namespace tabulon
