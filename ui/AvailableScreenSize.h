// The largest size that a window may have on its screen.
#pragma once

#include <QSize>

class QWidget;

namespace tabulon {

/// Returns the largest size of the window that fits on its screen, in pixels: without the desktop's own bars,
/// and without border and title, whose sizes are estimated from the style because they are known only when
/// the window is shown.
QSize availableScreenSize(const QWidget& window);

} // namespace tabulon
