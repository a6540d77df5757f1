// Activation: raising a window on behalf of the user's action in another program, such as a second start or a
// file manager.
#pragma once

#include "platform/SingleInstance.h"

class QWidget;

namespace tabulon {

/// Sets the activation token and the startup identifier of `request` from the environment; both are empty
/// where the desktop set none. Must be called before there is an application object, which removes them from
/// the environment.
void readActivation(LaunchRequest& request);

/// Prepares the activation of a request: windows raised from now on use its token. To be called before the
/// request is performed.
void beginActivation(const LaunchRequest& request);

/// Raises `window`, which may be `nullptr`, and reports to the desktop that the start is complete. To be
/// called after the request is performed. Does nothing on displays other than X11.
void endActivation(const LaunchRequest& request, QWidget* window);

} // namespace tabulon
