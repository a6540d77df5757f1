// The modifier keys as the window system has them now, not as they were at the last event.
#pragma once

#include "platform/Keyboard.h"

#include <QGuiApplication>

namespace tabulon {

class QtKeyboard : public Keyboard {
public:
    bool isOptionDown() override {
        return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier);
    }
};

} // namespace tabulon
