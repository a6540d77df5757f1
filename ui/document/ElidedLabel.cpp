#include "ui/document/ElidedLabel.h"

#include <QPainter>

namespace tabulon {
namespace {

constexpr int kMargin = 8;
constexpr int kRoomAboveAndBelow = 5;

} // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedLabel::setText(const QString& text) {
    text_ = text;
    setAccessibleName(text);
    update();
}

QSize ElidedLabel::sizeHint() const {
    return {200, fontMetrics().height() + 2 * kRoomAboveAndBelow};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), palette().color(QPalette::Mid));
    const QRect area = rect().adjusted(kMargin, 0, -kMargin, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text_, Qt::ElideRight, area.width()));
}

} // namespace tabulon
