// What the user is told about the settings file.
#pragma once

#include "platform/Platform.h"

#include <string>

namespace tabulon {

/// One modal alert: what happened to the file, where it is now, and what holds.
void settingsProblemAlert(const Platform& platform, const SettingsProblem& problem);

/// The same as a line for the log.
std::string settingsProblemLine(const SettingsProblem& problem);

} // namespace tabulon
