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
    UserDefaults& defaults;
    Localization& texts;
    SystemLog& log;
};

} // namespace tabulon
