// The alert sound: what somebody wants cannot be done here.
#pragma once

namespace tabulon {

class Beeper {
public:
    virtual ~Beeper() = default;

    virtual void beep() = 0;
};

} // namespace tabulon
