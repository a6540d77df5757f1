// Timers on Qt's event loop.
#pragma once

#include "platform/Timers.h"

namespace tabulon {

class QtTimers : public Timers {
public:
    std::unique_ptr<Timer> after(double seconds, Work work) override;
    std::unique_ptr<Timer> every(double seconds, Work work) override;
};

} // namespace tabulon
