#include "ui/document/ElidedLabel.h"

#include "ui/Strings.h"

#include <QEvent>
#include <QPainter>

namespace tabulon {
namespace {

constexpr int kLabelMargin = 8;
constexpr int kRoomAboveAndBelow = 5;

} // namespace

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const {
    return {200, fontMetrics().height() + 2 * kRoomAboveAndBelow};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, sizeHint().height()};
}

QRect ElidedLabel::textArea() const {
    return rect().adjusted(kLabelMargin, 0, -kLabelMargin, 0);
}

bool ElidedLabel::isCut() const {
    return fontMetrics().horizontalAdvance(text()) > textArea().width();
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        setToolTip(isCut() ? toolTipText(text().toStdString()) : QString());
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), 1), palette().color(QPalette::Mid));
    const QRect area = textArea();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
}

} // namespace tabulon
