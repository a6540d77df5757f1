// The current state of the modifier keys in the window system, not that of the last event.
#pragma once

#include "platform/Keyboard.h"

#include <QGuiApplication>

namespace tabulon {

/// See platform/Keyboard.h for the contracts. Requires: the application object.
class QtKeyboard : public Keyboard {
public:
    /// Returns whether the Alt key is down.
    bool isOptionDown() override {
        return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier);
    }
};

} // namespace tabulon
