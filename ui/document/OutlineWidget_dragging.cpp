// Drags from the rows and over them: the picture at the pointer, the mark of a drop's place, folders that are
// expanded under a drag, and scrolling at the edges. The controller decides what may be dropped.
#include "ui/MimeData.h"
#include "ui/document/OutlineWidget.h"
#include "window/MimeItems.h"
#include "window/ViewController.h"

#include <QDrag>
#include <QDragEnterEvent>
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

bool OutlineWidget::beginDragOver(const QDropEvent& event) {
    endDragOver();
    if (!controller_)
        return false;
    MimeContent content = mimeContentOf(*event.mimeData(), kReadMimeTypes);
    draggedItems_ = event.source() ? controller_->items().itemsIn(content)
                                   : controller_->dragging().itemsInForeignDrag(std::move(content));
    const auto* from = qobject_cast<const OutlineWidget*>(event.source());
    dragSource_ = from && from->controller() ? &from->controller()->outline() : nullptr;
    return OutlineDragging::isDragOfInterest(draggedItems_);
}

void OutlineWidget::endDragOver() {
    springTimer_.stop();
    draggedItems_.clear();
    dragSource_ = nullptr;
    showDropSpot(std::nullopt);
}

void OutlineWidget::showDropSpot(std::optional<DropSpot> spot) {
    if (dropSpot_ == spot)
        return;
    dropSpot_ = spot;
    viewport()->update();
}

DropSpot OutlineWidget::dropSpotAt(const QPoint& point) const {
    const int row = geometry().rowAtY(point.y());
    if (row < 0 || row >= rowCount())
        return {};
    const QRect name = geometry().cellRect(row, Column::Name);
    const double fraction = static_cast<double>(point.y() - name.top()) / name.height();
    return controller_->dragging().dropSpot(static_cast<std::size_t>(row), fraction,
                                            (point.x() - name.left()) / geometry().indentation() - 1);
}

// Alt turns a move into a copy as in menus, and Ctrl as on other desktops.
bool OutlineWidget::offerDrop(QDropEvent* event, const DropSpot& spot) {
    event->ignore();
    if (!controller_ || draggedItems_.empty())
        return false;
    const DragInfo drag{.source = dragSource_,
                        .copies = (event->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) != 0,
                        .items = draggedItems_};
    const DragOperation operation = controller_->dragging().validateDrop(drag, spot.item, spot.childIndex);
    const Qt::DropAction action = operation == DragOperation::None   ? Qt::IgnoreAction
                                  : operation == DragOperation::Move ? Qt::MoveAction
                                                                     : actionThatKeepsTheSource(*event);
    if (action == Qt::IgnoreAction)
        return false;
    event->setDropAction(action);
    event->accept();
    return true;
}

void OutlineWidget::performDrop(QDropEvent* event, const DropSpot& spot) {
    if (offerDrop(event, spot)) {
        const DragInfo drag{.source = dragSource_, .copies = false, .items = draggedItems_};
        if (!controller_->dragging().acceptDrop(drag, spot.item, spot.childIndex))
            event->ignore();
    }
    endDragOver();
}

void OutlineWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (beginDragOver(*event))
        event->acceptProposedAction();
    else
        event->ignore();
}

void OutlineWidget::dragMoveEvent(QDragMoveEvent* event) {
    const QPoint point = event->position().toPoint();
    if (point.y() < autoScrollMargin() || point.y() >= viewport()->height() - autoScrollMargin())
        startAutoScroll();
    if (!controller_)
        return event->ignore();
    const DropSpot spot = dropSpotAt(point);
    const bool taken = offerDrop(event, spot);
    const bool springs = taken && spot.item && !spot.childIndex && !isExpanded(*spot.item);
    if (!springs)
        springTimer_.stop();
    else if (dropSpot_ != spot || !springTimer_.isActive())
        springTimer_.start(kSpringDelay, this);
    showDropSpot(taken ? std::optional(spot) : std::nullopt);
}

void OutlineWidget::dragLeaveEvent(QDragLeaveEvent*) {
    stopAutoScroll();
    endDragOver();
}

void OutlineWidget::dropEvent(QDropEvent* event) {
    stopAutoScroll();
    if (controller_)
        performDrop(event, dropSpotAt(event->position().toPoint()));
}

// Expands the folder that a drag rests on.
void OutlineWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() != springTimer_.timerId())
        return QAbstractItemView::timerEvent(event);
    springTimer_.stop();
    if (!controller_ || !dropSpot_ || !dropSpot_->item || dropSpot_->childIndex)
        return;
    Bookmark& folder = *dropSpot_->item;
    showDropSpot(std::nullopt);
    controller_->outline().expandItem(folder);
}

} // namespace tabulon
