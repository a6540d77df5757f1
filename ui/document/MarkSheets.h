// The two sheets about the marks of links: what is done with marked links, and what the marks mean.
#pragma once

#include <memory>

class QWidget;

namespace tabulon {

class Localization;
class MoveDeleteController;

/// Calls `viewDidLoad` of the controller, shows the sheet of the window and returns at once. If the user
/// confirms, calls `done` of the controller, closes the sheet, and then calls `execute` from the main loop,
/// unless the window was destroyed before. The sheet shares the ownership of the controller, and the window
/// owns the sheet. Requires: `texts` outlives the window.
void presentMoveDelete(QWidget* window, const std::shared_ptr<MoveDeleteController>& controller,
                       const Localization& texts);

/// Shows a sheet that explains each mark, and returns at once. `window` owns the sheet. `texts` is used only
/// during the call.
void presentLegenda(QWidget* window, const Localization& texts);

} // namespace tabulon
