// The events of Qt, passed to the parts of the outline: painting, keys, the pointer, drags and drops.
#include "ui/MimeData.h"
#include "ui/document/OutlineWidget.h"
#include "window/ViewController.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QMetaMethod>
#include <QPainter>
#include <QPointer>

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
    OutlineSourceView::changeEvent(event);
    const bool looks = event->type() == QEvent::StyleChange || event->type() == QEvent::ApplicationFontChange;
    if (looks && controller_)
        applyFont();
}

void OutlineWidget::paintEvent(QPaintEvent* event) {
    OutlineSourceView::paintEvent(event);
    if (!controller_ || !drops_.markedSpot())
        return;
    QPainter onRows(viewport());
    painter().paintDropSpot(onRows, *drops_.markedSpot());
}

bool OutlineWidget::pressTriangle(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return false;
    const std::optional<std::size_t> row = pointer().triangleAt(event.position().toPoint());
    if (!row)
        return false;
    Outline& outline = controller_->outline();
    Bookmark& item = outline.itemAtRow(*row);
    const bool withChildren = event.modifiers().testFlag(Qt::AltModifier);
    if (item.showHier())
        withChildren ? outline.collapseItemWithChildren(item) : outline.collapseItem(item);
    else
        withChildren ? outline.expandItemWithChildren(item) : outline.expandItem(item);
    return true;
}

void OutlineWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) // keeps the selection
        return event->accept();
    if (controller_ && pressTriangle(*event))
        return event->accept();
    OutlineSourceView::mousePressEvent(event);
}

void OutlineWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    if (controller_ && pointer().triangleAt(point))
        return mousePressEvent(event);
    OutlineSourceView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(point);
    if (controller_ && index.isValid() && event->button() == Qt::LeftButton)
        controller_->opening().doubleClick(clickPlaceAt(index.row(), event->position()));
}

ClickPlace OutlineWidget::clickPlaceAt(int row, const QPointF& point) const {
    const QRect cell = geometry().cellRect(row, Column::Name);
    return {.row = static_cast<std::size_t>(row),
            .isInNameCell = cell.contains(point.toPoint()),
            .x = point.x(),
            .cellRight = static_cast<double>(cell.x()) + cell.width()};
}

void OutlineWidget::mouseMoveEvent(QMouseEvent* event) {
    OutlineSourceView::mouseMoveEvent(event);
    if (controller_)
        controller_->outline().mouseMoved(pointer().rowAt(event->position().toPoint()));
}

void OutlineWidget::leaveEvent(QEvent* event) {
    OutlineSourceView::leaveEvent(event);
    if (controller_)
        controller_->outline().mouseExited();
}

void OutlineWidget::keyPressEvent(QKeyEvent* event) {
    if (controller_ && keys_.press(*event))
        return event->accept();
    OutlineSourceView::keyPressEvent(event);
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
    controller_->outline().setClickedRow(byMouse ? pointer().rowAt(event->pos()) : std::nullopt);
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
    drag->setPixmap(painter().pictureOfRows(selectedRows()));
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
