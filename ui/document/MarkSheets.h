// The two sheets about the marks of links: what is to become of marked links, and what the marks mean.
#pragma once

#include <memory>

class QWidget;

namespace tabulon {

class Localization;
class MoveDeleteController;

/// Shows the sheet of the window and returns at once. The texts must live longer than the window.
void presentMoveDelete(QWidget* window, const std::shared_ptr<MoveDeleteController>& controller,
                       const Localization& texts);

void presentLegenda(QWidget* window, const Localization& texts);

} // namespace tabulon
