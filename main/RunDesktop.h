// The desktop program: its services, windows and application delegate.
#pragma once

#include "app/LaunchArguments.h"

namespace tabulon {

/// Runs the application until it ends, and returns the program's exit status. Requires: an application
/// object, and an `instance` whose `claim` returned First or Alone.
int runDesktop(const LaunchArguments& arguments, SingleInstance& instance);

} // namespace tabulon
