#include "ui/document/OutlineDrops.h"

#include "ui/MimeData.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineWidget.h"
#include "window/MimeItems.h"
#include "window/ViewController.h"

#include <QDropEvent>

namespace tabulon {

OutlineDrops::OutlineDrops(const OutlineRowsView& view, const Targets& targets)
    : view_(view), targets_(targets) {
    spring_.setSingleShot(true);
    spring_.setInterval(kSpringDelay);
    connect(&spring_, &QTimer::timeout, this, &OutlineDrops::expandMarkedFolder);
}

bool OutlineDrops::begin(const QDropEvent& event) {
    end();
    if (!view_.model())
        return false;
    MimeContent content = mimeContentOf(*event.mimeData(), kReadMimeTypes);
    items_ = event.source() ? targets_.items.itemsIn(content)
                            : targets_.dragging.itemsInForeignDrag(std::move(content));
    const auto* from = qobject_cast<const OutlineWidget*>(event.source());
    source_ = from && from->controller() ? &from->controller()->outline() : nullptr;
    return OutlineDragging::isDragOfInterest(items_);
}

void OutlineDrops::end() {
    spring_.stop();
    items_.clear();
    source_ = nullptr;
    mark(std::nullopt);
}

void OutlineDrops::mark(std::optional<DropSpot> spot) {
    if (markedSpot_ == spot)
        return;
    markedSpot_ = spot;
    emit markChanged();
}

DropSpot OutlineDrops::spotAt(const QPoint& point) const {
    const OutlineGeometry& geometry = view_.geometry();
    const int row = geometry.rowAtY(point.y());
    if (row < 0 || row >= view_.rowCount())
        return {};
    const QRect name = geometry.cellRect(row, view_.header().outlineColumn());
    const double fraction = static_cast<double>(point.y() - name.top()) / name.height();
    return targets_.dragging.dropSpot(static_cast<std::size_t>(row), fraction,
                                      (point.x() - name.left()) / geometry.indentation() - 1);
}

// Alt turns a move into a copy as in menus, and Ctrl as on other desktops.
bool OutlineDrops::offer(QDropEvent* event, const DropSpot& spot) {
    event->ignore();
    if (!view_.model() || items_.empty())
        return false;
    const DragInfo drag{.source = source_,
                        .copies = (event->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) != 0,
                        .items = items_};
    const DragOperation operation = targets_.dragging.validateDrop(drag, spot.item, spot.childIndex);
    const Qt::DropAction action = operation == DragOperation::None   ? Qt::IgnoreAction
                                  : operation == DragOperation::Move ? Qt::MoveAction
                                                                     : actionThatKeepsTheSource(*event);
    if (action == Qt::IgnoreAction)
        return false;
    event->setDropAction(action);
    event->accept();
    return true;
}

void OutlineDrops::moveOverRows(QDropEvent* event) {
    if (!view_.model())
        return event->ignore();
    const DropSpot spot = spotAt(event->position().toPoint());
    const bool taken = offer(event, spot);
    const bool springs = taken && spot.item && !spot.childIndex && !isExpanded(*spot.item);
    if (!springs)
        spring_.stop();
    else if (markedSpot_ != spot || !spring_.isActive())
        spring_.start();
    mark(taken ? std::optional(spot) : std::nullopt);
}

void OutlineDrops::perform(QDropEvent* event, const DropSpot& spot) {
    if (offer(event, spot)) {
        const DragInfo drag{.source = source_, .copies = false, .items = items_};
        if (!targets_.dragging.acceptDrop(drag, spot.item, spot.childIndex))
            event->ignore();
    }
    end();
}

void OutlineDrops::performOverRows(QDropEvent* event) {
    if (view_.model())
        perform(event, spotAt(event->position().toPoint()));
}

void OutlineDrops::expandMarkedFolder() {
    if (!view_.model() || !markedSpot_ || !markedSpot_->item || markedSpot_->childIndex)
        return;
    Bookmark& folder = *markedSpot_->item;
    mark(std::nullopt);
    targets_.outline.expandItem(folder);
}

} // namespace tabulon
