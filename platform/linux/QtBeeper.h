// The desktop's alert sound.
#pragma once

#include "platform/Beeper.h"

#include <QApplication>

namespace tabulon {

/// See platform/Beeper.h for the contracts. Requires: the application object.
class QtBeeper : public Beeper {
public:
    /// Plays the desktop's alert sound.
    void beep() override { QApplication::beep(); }
};

} // namespace tabulon
