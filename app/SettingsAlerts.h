// Reports about problems with the settings file.
#pragma once

#include "platform/Platform.h"

#include <string>

namespace tabulon {

/// Shows a modal alert: what happened to the file, and where a damaged one is stored or why the file cannot
/// be used.
void settingsProblemAlert(const Platform& platform, const SettingsProblem& problem);

/// Returns the same as a line in English for the log.
std::string settingsProblemLine(const SettingsProblem& problem);

} // namespace tabulon
