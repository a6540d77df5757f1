#include "ui/AvailableScreenSize.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace tabulon {

QSize availableScreenSize(const QWidget& window) {
    const QStyle& style = *window.style();
    const int title = style.pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
    const int border = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &window);
    return window.screen()->availableSize() - QSize(2 * border, title + 2 * border);
}

} // namespace tabulon
