// Events of the program's life: its deactivation, and the end of the session.
#pragma once

#include <QObject>

#include <functional>

namespace tabulon {

/// Reports events of the session. Functions are called on the main thread, from the main loop.
class SessionEvents : public QObject {
public:
    /// `deactivated` is called when no window of the program is active any more. `ending` is called when the
    /// session ends, or the process receives SIGTERM, SIGINT or SIGHUP; the session waits until it returns.
    /// Both may be called more than once. Requires: an application object, no other object of this class, and
    /// functions that are not empty.
    SessionEvents(std::function<void()> deactivated, const std::function<void()>& ending);
    /// Restores the default effect of the signals, which is the end of the process.
    ~SessionEvents() override;

private:
    void watchSignals(const std::function<void()>& ending);

    /// Passes signals to the main loop: the end that is read, and the end that the signal handler writes.
    /// Negative if the pipe could not be made; the signals then have their default effect.
    int pipe_[2] = {-1, -1};
};

} // namespace tabulon
