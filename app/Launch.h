// The decision whether this start of the program runs, or leaves its request to a process that runs already.
#pragma once

#include "base/Localization.h"
#include "platform/Alerts.h"
#include "platform/SingleInstance.h"

namespace tabulon {

/// What the program does after it was started.
enum class LaunchDecision {
    Run,        ///< run, as the first process or beside another one
    HandedOver, ///< exit with success: the running process has the request
    Cancelled,  ///< exit: the running process does not respond, and the user cancelled
};

/// How long the running process may take to respond before the user is asked.
inline constexpr std::chrono::seconds kLaunchPatience{5};

/// Passes `request` to the running process, if there is one, and returns what this process does. If the
/// running process is just ending, the attempt is repeated. If it does not respond, an alert asks whether to
/// wait, to run beside it, or to cancel. Returns Run if other processes cannot be found.
LaunchDecision decideLaunch(SingleInstance& instance, const LaunchRequest& request, Alerts& alerts,
                            const Localization& texts);

} // namespace tabulon
