// The desktop's alert sound.
#pragma once

#include "platform/Beeper.h"

#include <QApplication>

namespace tabulon {

class QtBeeper : public Beeper {
public:
    /// Plays the desktop's alert sound.
    void beep() override { QApplication::beep(); }
};

} // namespace tabulon
