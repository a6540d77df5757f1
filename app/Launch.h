// Whether this start of the program runs, or leaves its work to one that runs already.
#pragma once

#include "base/Localization.h"
#include "platform/Alerts.h"
#include "platform/SingleInstance.h"

namespace tabulon {

enum class LaunchDecision {
    Run,        ///< as the first, or beside another one
    HandedOver, ///< the running one does it: end with success
    Cancelled,  ///< the running one does not answer, and the user gave up
};

/// How long the running program may take to answer before the user is asked what to do.
inline constexpr std::chrono::seconds kLaunchPatience{5};

/// Without a way to find others it runs. One that is just ending is waited out and followed. One that does
/// not answer may only be busy: the user decides whether to wait on, to open another one beside it or to give
/// up.
LaunchDecision decideLaunch(SingleInstance& instance, const LaunchRequest& request, Alerts& alerts,
                            const Localization& texts);

} // namespace tabulon
