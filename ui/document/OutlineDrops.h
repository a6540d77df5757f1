// A drag while it is over an outline: its items, the place of a drop, the mark of that place, and the folder
// that is expanded when the drag rests on it. OutlineDragging decides what may be dropped.
#pragma once

#include "window/DragInfo.h"

#include <QObject>
#include <QTimer>

#include <optional>
#include <vector>

class QDropEvent;
class QPoint;

namespace tabulon {

class ItemExchange;
class Outline;
class OutlineDragging;
class OutlineRowsView;

/// The state of the drag over one outline: empty before `begin` and after `end`. A view without a model takes
/// no drags; events are ignored then.
class OutlineDrops : public QObject {
    Q_OBJECT

public:
    /// The parts of the controller that a drag uses.
    struct Targets {
        /// Has the folders that are expanded under the drag.
        Outline& outline;
        /// Decides about drops and performs them.
        OutlineDragging& dragging;
        /// Reads the items of a drag that began in this program.
        const ItemExchange& items;
    };

    /// How long a drag rests on a collapsed folder before that is expanded, in milliseconds.
    static constexpr int kSpringDelay = 700;

    /// Requires: `view` and the targets outlive this object, or `view` has lost its model when they are
    /// destroyed.
    OutlineDrops(const OutlineRowsView& view, const Targets& targets);

    /// Reads the items of a drag that enters, and returns whether they can be dropped on an outline. Ends the
    /// drag before it, if that has not ended.
    bool begin(const QDropEvent& event);
    /// Accepts or ignores the event, as OutlineDragging decides about a drop at `spot`, and returns whether
    /// it was accepted. Ignores it if `begin` has read no items. The event's drop action is set; it is never
    /// a move of items that the outline only copies, since their source might delete them.
    bool offer(QDropEvent* event, const DropSpot& spot);
    /// Offers a drop at the event's place over the rows, and marks that place if it was accepted. A drag that
    /// rests on a collapsed folder expands it after `kSpringDelay`.
    void moveOverRows(QDropEvent* event);
    /// Performs a drop at `spot` if it is accepted, else ignores the event. Ends the drag over the outline.
    void perform(QDropEvent* event, const DropSpot& spot);
    /// Performs a drop at the event's place over the rows, as `perform` does. Does nothing without a model.
    void performOverRows(QDropEvent* event);
    /// Ends the drag over the outline: releases its items and removes the mark.
    void end();

    /// Returns the place that is to be marked in the rows, or `nullopt` for none.
    const std::optional<DropSpot>& markedSpot() const { return markedSpot_; }
    /// Marks a place, or removes the mark. Called with `nullopt` before the marked item may be removed.
    void mark(std::optional<DropSpot> spot);

signals:
    /// Emitted when another place is marked.
    void markChanged();

private:
    /// Returns the place of a drop at this point of the viewport: the root if there is no row.
    DropSpot spotAt(const QPoint& point) const;
    /// Expands the folder that the drag rests on.
    void expandMarkedFolder();

    const OutlineRowsView& view_;
    const Targets targets_;
    /// The items of the drag; empty while there is no drag.
    std::vector<PasteboardItem> items_;
    /// The outline that the drag began in, or `nullptr`.
    const Outline* source_ = nullptr;
    /// Its item is not owned.
    std::optional<DropSpot> markedSpot_;
    /// Runs while the drag rests on a collapsed folder.
    QTimer spring_;
};

} // namespace tabulon
