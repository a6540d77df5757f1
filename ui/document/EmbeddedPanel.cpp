#include "ui/document/EmbeddedPanel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QStylePainter>

namespace tabulon {
namespace {

constexpr int kPanelMargin = 8; // between the panel and the edges of the window

void removeShortcuts(QWidget& panel) {
    for (auto* button : panel.findChildren<QAbstractButton*>()) {
        button->setText(button->text().remove('&'));
        button->setShortcut({});
    }
    for (auto* label : panel.findChildren<QLabel*>())
        label->setText(label->text().remove('&'));
}

void drawFrame(QWidget& panel) {
    QStylePainter painter(&panel);
    QStyleOptionFrame frame;
    frame.initFrom(&panel);
    frame.lineWidth = 1;
    painter.drawPrimitive(QStyle::PE_FrameMenu, frame);
}

} // namespace

bool newWindowsTakeTheKeyboard() {
    return QGuiApplication::platformName().startsWith("wayland");
}

EmbeddedPanel::EmbeddedPanel(QDialog& panel) : QObject(&panel), panel_(panel) {
    panel.setWindowFlags(Qt::Widget);
    panel.setAutoFillBackground(true);
    removeShortcuts(panel);
    panel.installEventFilter(this);
    panel.parentWidget()->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &EmbeddedPanel::keyboardMoved);
    place();
}

bool EmbeddedPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == panel_.parentWidget() && event->type() == QEvent::Resize)
        place();
    else if (watched == &panel_ && event->type() == QEvent::Paint)
        drawFrame(panel_);
    else if (watched == &panel_ && event->type() == QEvent::Hide && before_ &&
             panel_.isAncestorOf(QApplication::focusWidget()))
        before_->setFocus();
    return false;
}

void EmbeddedPanel::keyboardMoved(QWidget* from, QWidget* to) {
    const bool wasInside = from && panel_.isAncestorOf(from);
    const bool isInside = to && panel_.isAncestorOf(to);
    if (!wasInside && isInside)
        before_ = from;
    else if (wasInside && !isInside)
        emit left();
}

// Places the panel above the status line, in its own size as far as the window has room.
void EmbeddedPanel::place() {
    const auto* window = qobject_cast<QMainWindow*>(panel_.parentWidget());
    const QRect area = (window ? window->centralWidget()->geometry() : panel_.parentWidget()->rect())
                           .adjusted(kPanelMargin, kPanelMargin, -kPanelMargin, -4 * kPanelMargin);
    const QSize size = panel_.size().expandedTo(panel_.minimumSizeHint()).boundedTo(area.size());
    panel_.setGeometry(QRect(area.bottomRight() - QPoint(size.width() - 1, size.height() - 1), size));
}

} // namespace tabulon
