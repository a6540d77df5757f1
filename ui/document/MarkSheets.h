// The two sheets about the marks of links: what is done with marked links, and what the marks mean.
#pragma once

#include <memory>

class QWidget;

namespace tabulon {

class Localization;
class MoveDeleteController;

/// Shows the sheet of the window and returns at once. If the user confirms, calls `done` of the controller,
/// closes the sheet, and then calls `execute` from the main loop. Requires: `texts` outlives the window.
void presentMoveDelete(QWidget* window, const std::shared_ptr<MoveDeleteController>& controller,
                       const Localization& texts);

/// Shows a sheet that explains each mark, and returns at once.
void presentLegenda(QWidget* window, const Localization& texts);

} // namespace tabulon
