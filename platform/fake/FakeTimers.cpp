#include "platform/fake/FakeTimers.h"

#include <algorithm>

namespace tabulon {

class FakeTimers::Handle : public Timer {
public:
    Handle(FakeTimers& timers, std::uint64_t number) : timers_(timers), number_(number) {}
    ~Handle() override { timers_.stop(number_); }

private:
    FakeTimers& timers_;
    std::uint64_t number_;
};

std::unique_ptr<Timer> FakeTimers::add(double seconds, double interval, Work work) {
    entries_.push_back({++lastNumber_, now_ + seconds, interval, std::move(work)});
    return std::make_unique<Handle>(*this, lastNumber_);
}

void FakeTimers::stop(std::uint64_t number) {
    entries_.remove_if([number](const Entry& entry) { return entry.number == number; });
}

void FakeTimers::advance(double seconds) {
    const double end = now_ + seconds;
    for (;;) {
        const auto next = std::ranges::min_element(entries_, {}, &Entry::due);
        if (next == entries_.end() || next->due > end)
            break;
        now_ = std::max(now_, next->due);
        const Work work = next->work;
        if (next->interval > 0)
            next->due += next->interval;
        else
            entries_.erase(next);
        work();
    }
    now_ = std::max(now_, end); // work may have advanced the time further
}

} // namespace tabulon
