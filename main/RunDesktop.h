// The desktop program as the one that runs: the services, the windows and the application delegate, put
// together.
#pragma once

#include "app/LaunchArguments.h"

namespace tabulon {

/// Runs until the application ends, and gives the program's exit status. Requires an application object;
/// `instance` is the first or alone.
int runDesktop(const LaunchArguments& arguments, SingleInstance& instance);

} // namespace tabulon
