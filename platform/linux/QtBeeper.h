// The desktop's alert sound.
#pragma once

#include "platform/Beeper.h"

#include <QApplication>

namespace tabulon {

class QtBeeper : public Beeper {
public:
    void beep() override { QApplication::beep(); }
};

} // namespace tabulon
