// The services that every layer from the model upwards may use, handed in together.
#pragma once

#include "platform/Clock.h"
#include "platform/Localization.h"
#include "platform/SystemLog.h"
#include "platform/UserDefaults.h"

namespace tabulon {

/// References only: whoever builds one keeps the services alive longer than everything that was given it.
struct BaseServices {
    Clock& clock;
    UserDefaults& defaults;
    Localization& texts;
    SystemLog& log;
};

} // namespace tabulon
