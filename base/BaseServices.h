// The services that every layer from the model upwards may use, in one struct. Desktop services are in
// platform/Platform.h.
#pragma once

#include "base/Clock.h"
#include "base/Localization.h"
#include "base/SystemLog.h"
#include "base/UserDefaults.h"

namespace tabulon {

/// References to the services; owns none of them. Requires: the services outlive every object that holds a
/// copy of this struct.
struct BaseServices {
    Clock& clock;
    /// The settings, not the state that the program stores by itself.
    UserDefaults& defaults;
    Localization& texts;
    /// Receives failures that are not reported to the user.
    SystemLog& log;
};

} // namespace tabulon
