// What the desktop tells a program about its life: another program comes to the front, the session ends.
#pragma once

#include <QObject>

#include <functional>

namespace tabulon {

/// Calls come on the main thread, from the main loop.
class SessionEvents : public QObject {
public:
    /// `deactivated`: no window of the program is in front any more. `ending`: the session ends, or somebody
    /// ends the program with SIGTERM, SIGINT or SIGHUP; it may come more than once. Requires an application
    /// object, and to be the only one of its kind.
    SessionEvents(std::function<void()> deactivated, const std::function<void()>& ending);
    ~SessionEvents() override;

private:
    void watchSignals(const std::function<void()>& ending);

    int pipe_[2] = {-1, -1};
};

} // namespace tabulon
