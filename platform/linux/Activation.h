// Coming to the front on behalf of what the user did in another program: a second start, a file manager.
#pragma once

#include "platform/SingleInstance.h"

class QWidget;

namespace tabulon {

/// What the desktop gave this start of the program for the user's action. Must be called before there is an
/// application object, which takes it out of the environment.
void readActivation(LaunchRequest& request);

/// Called before a request is performed: windows that come to the front from now on do it in its name.
void beginActivation(const LaunchRequest& request);

/// Called after it: sees to it that `window` (null for none) is in front, and tells the desktop that the
/// start has been dealt with.
void endActivation(const LaunchRequest& request, QWidget* window);

} // namespace tabulon
