// The events of Qt, passed to the parts of the outline: painting, keys, the pointer, drags and drops.
#include "ui/MimeData.h"
#include "ui/document/OutlineWidget.h"
#include "window/ViewController.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QHelpEvent>
#include <QMetaMethod>
#include <QPainter>
#include <QPointer>
#include <QToolTip>

namespace tabulon {
namespace {

DragOperation operationOf(Qt::DropAction result, bool endedHere) {
    if (result == Qt::CopyAction)
        return DragOperation::Copy;
    if (result != Qt::MoveAction && result != Qt::TargetMoveAction)
        return DragOperation::None;
    return endedHere ? DragOperation::Move : DragOperation::Delete; // only the trash accepts a move
}

} // namespace

void OutlineWidget::changeEvent(QEvent* event) {
    OutlineRowsView::changeEvent(event);
    const bool looks = event->type() == QEvent::StyleChange || event->type() == QEvent::ApplicationFontChange;
    if (looks && controller_)
        applyFont();
}

void OutlineWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    if (!controller_)
        return;
    const bool focus = hasFocus();
    const bool framesCurrent = focus && selectionModel()->hasSelection();
    const int first = std::max(0, geometry().rowAtY(event->rect().top()));
    const int last = std::min(rowCount() - 1, geometry().rowAtY(event->rect().bottom()));
    for (int row = first; row <= last; ++row)
        painter_.paintRow(painter, row,
                          {.selected = rowIsSelected(row),
                           .framed = framesCurrent && currentIndex().row() == row,
                           .colors = focus && isActiveWindow() ? QPalette::Active : QPalette::Inactive});
    if (drops_.markedSpot())
        painter_.paintDropSpot(painter, *drops_.markedSpot());
}

void OutlineWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) // keeps the selection
        return event->accept();
    if (controller_ && pointer_.pressTriangle(*event))
        return event->accept();
    OutlineRowsView::mousePressEvent(event);
}

void OutlineWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (controller_ && pointer_.triangleAt(point))
        return mousePressEvent(event);
    OutlineRowsView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(point);
    if (index.isValid() && event->button() == Qt::LeftButton)
        toggleRow(static_cast<std::size_t>(index.row()));
}

void OutlineWidget::mouseMoveEvent(QMouseEvent* event) {
    OutlineRowsView::mouseMoveEvent(event);
    if (controller_)
        controller_->outline().mouseMoved(pointer_.rowAt(event->position().toPoint()));
}

void OutlineWidget::leaveEvent(QEvent* event) {
    OutlineRowsView::leaveEvent(event);
    if (controller_)
        controller_->outline().mouseExited();
}

bool OutlineWidget::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip && controller_) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), pointer_.toolTipAt(help->pos()), this);
        return true;
    }
    return OutlineRowsView::viewportEvent(event);
}

void OutlineWidget::keyPressEvent(QKeyEvent* event) {
    if (controller_ && keys_.press(*event))
        return event->accept();
    OutlineRowsView::keyPressEvent(event);
}

void OutlineWidget::keyboardSearch(const QString& search) {
    if (controller_)
        keys_.type(search);
}

void OutlineWidget::contextMenuEvent(QContextMenuEvent* event) {
    static const QMetaMethod kWanted = QMetaMethod::fromSignal(&OutlineWidget::contextMenuWanted);
    if (!controller_ || !isSignalConnected(kWanted))
        return event->ignore();
    controller_->fields().cancelAutoEdit();
    endEditing();
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    controller_->outline().setClickedRow(byMouse ? pointer_.rowAt(event->pos()) : std::nullopt);
    emit contextMenuWanted(event->globalPos());
}

void OutlineWidget::contextMenuDidClose() {
    if (controller_)
        controller_->outline().setClickedRow(std::nullopt);
}

void OutlineWidget::startDrag(Qt::DropActions) {
    if (!controller_ || !selectionModel()->hasSelection())
        return;
    endEditing();
    const std::vector<PasteboardItem> items = controller_->dragging().beginDraggingSession();
    auto* drag = new QDrag(this); // deleted by Qt after the drag
    drag->setMimeData(makeMimeData(controller_->dragging().contentForDrag(items)).release());
    drag->setPixmap(painter_.pictureOfRows(selectedRows()));
    drag->setHotSpot(QPoint(geometry().iconSize() / 2, geometry().rowHeight() / 2));
    const QPointer<OutlineWidget> alive(this);
    const Qt::DropAction result =
        drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction);
    if (alive && controller_)
        controller_->dragging().draggingSessionEnded(
            operationOf(result, qobject_cast<QWidget*>(drag->target())));
}

void OutlineWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (drops_.begin(*event))
        event->acceptProposedAction();
    else
        event->ignore();
}

void OutlineWidget::dragMoveEvent(QDragMoveEvent* event) {
    const int y = event->position().toPoint().y();
    if (y < autoScrollMargin() || y >= viewport()->height() - autoScrollMargin())
        startAutoScroll();
    drops_.moveOverRows(event);
}

void OutlineWidget::dragLeaveEvent(QDragLeaveEvent*) {
    stopAutoScroll();
    drops_.end();
}

void OutlineWidget::dropEvent(QDropEvent* event) {
    stopAutoScroll();
    drops_.performOverRows(event);
}

} // namespace tabulon
