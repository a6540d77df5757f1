// Events of the program's life: its deactivation, and the end of the session.
#pragma once

#include <QObject>

#include <functional>

namespace tabulon {

/// Reports events of the session. Functions are called on the main thread, from the main loop.
class SessionEvents : public QObject {
public:
    /// `deactivated` is called when no window of the program is active any more. `ending` is called when the
    /// session ends, or the process receives SIGTERM, SIGINT or SIGHUP; it may be called more than once.
    /// Requires: an application object, and no other object of this class.
    SessionEvents(std::function<void()> deactivated, const std::function<void()>& ending);
    ~SessionEvents() override;

private:
    void watchSignals(const std::function<void()>& ending);

    /// Passes signals to the main loop.
    int pipe_[2] = {-1, -1};
};

} // namespace tabulon
