#include "platform/linux/QtTimers.h"

#include <QTimer>

#include <chrono>

namespace tabulon {
namespace {

constexpr auto kRetryPause = std::chrono::milliseconds(50); // until postponed work is tried again

class QtTimer : public Timer {
public:
    QtTimer(double seconds, bool once, Timers::Work work, std::function<bool()> mustWait) {
        timer_.setSingleShot(once);
        const auto due = [this, work = std::move(work), mustWait = std::move(mustWait)] {
            if (mustWait && mustWait()) {
                if (timer_.isSingleShot())
                    timer_.start(kRetryPause);
                return;
            }
            const Timers::Work running = work; // a copy, since it may destroy the timer
            running();
        };
        QObject::connect(&timer_, &QTimer::timeout, due);
        timer_.start(std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000)));
    }

private:
    QTimer timer_;
};

} // namespace

std::unique_ptr<Timer> QtTimers::after(double seconds, Work work) {
    return std::make_unique<QtTimer>(seconds, true, std::move(work), mustWait_);
}

std::unique_ptr<Timer> QtTimers::every(double seconds, Work work) {
    return std::make_unique<QtTimer>(seconds, false, std::move(work), mustWait_);
}

} // namespace tabulon
