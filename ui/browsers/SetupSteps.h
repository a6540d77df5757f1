// The sheet with the steps by which the user loads the extension into a browser.
#pragma once

#include "base/Browsers.h"
#include "base/Localization.h"

#include <string>

class QWidget;

namespace tabulon {

/// Shows the steps for `browser` as a sheet of `window` and returns at once. `folder` is the path of the
/// extension in the file system's encoding; a button copies it. The sheet deletes itself when it is closed.
/// `texts` is used only during the call.
void showSetupSteps(QWidget* window, const Browser& browser, const std::string& folder,
                    const Localization& texts);

} // namespace tabulon
