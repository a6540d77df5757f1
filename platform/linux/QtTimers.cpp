#include "platform/linux/QtTimers.h"

#include <QTimer>

#include <chrono>

namespace tabulon {
namespace {

class QtTimer : public Timer {
public:
    QtTimer(double seconds, bool once, Timers::Work work) {
        timer_.setSingleShot(once);
        // A copy runs, since the work may destroy the timer.
        QObject::connect(&timer_, &QTimer::timeout, [work = std::move(work)] {
            const Timers::Work running = work;
            running();
        });
        timer_.start(std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000)));
    }

private:
    QTimer timer_;
};

} // namespace

std::unique_ptr<Timer> QtTimers::after(double seconds, Work work) {
    return std::make_unique<QtTimer>(seconds, true, std::move(work));
}

std::unique_ptr<Timer> QtTimers::every(double seconds, Work work) {
    return std::make_unique<QtTimer>(seconds, false, std::move(work));
}

} // namespace tabulon
