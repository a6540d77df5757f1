// The services that every layer from the model upwards may use, handed in together.
#pragma once

#include "base/Clock.h"
#include "base/Localization.h"
#include "base/SystemLog.h"
#include "base/UserDefaults.h"

namespace tabulon {

/// References only: whoever builds one keeps the services alive longer than everything that was given it.
struct BaseServices {
    Clock& clock;
    UserDefaults& defaults;
    Localization& texts;
    SystemLog& log;
};

} // namespace tabulon
