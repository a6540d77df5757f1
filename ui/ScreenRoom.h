// What a screen has for a window.
#pragma once

#include <QSize>

class QWidget;

namespace tabulon {

/// The most that fits on the window's screen, besides the desktop's own bars and the window's border and
/// title, whose sizes are known only when it is shown.
QSize roomOnScreen(const QWidget& window);

} // namespace tabulon
