#include "ui/document/OutlineSourceView.h"

#include "ui/document/OutlineAccessible.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineModel.h"
#include "window/RowSource.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace tabulon {

OutlineSourceView::OutlineSourceView(const RowSource& source, QWidget* parent)
    : OutlineRowsView(source.columns(), parent), source_(source),
      rowModel_(new OutlineModel(source, header().columns(), this)),
      painter_({*this, header(), geometry(), source}), pointer_(*this, source) {
    installOutlineAccessibility();
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    showModel(rowModel_);
}

bool OutlineSourceView::rowIsSelected(int row) const {
    return selectionModel()->isSelected(indexOfRow(row));
}

void OutlineSourceView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    if (!model())
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
}

bool OutlineSourceView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip && model()) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), pointer_.toolTipAt(help->pos()), this);
        return true;
    }
    return OutlineRowsView::viewportEvent(event);
}

void OutlineSourceView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    OutlineRowsView::selectionChanged(selected, deselected);
    reportFirstRow(QAccessible::SelectionAdd, selected);
    reportFirstRow(QAccessible::SelectionRemove, deselected);
}

void OutlineSourceView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    OutlineRowsView::currentChanged(current, previous);
    reportFirstRow(QAccessible::Focus, QItemSelection(current, current));
}

void OutlineSourceView::reportFirstRow(QAccessible::Event type, const QItemSelection& items) {
    if (!QAccessible::isActive() || !model() || items.isEmpty() || !items.first().isValid())
        return;
    QAccessibleEvent event(this, type);
    reportToScreenReader(event, items.first().top());
}

void OutlineSourceView::reportToScreenReader(QAccessibleEvent& event, int row) {
    event.setChild(accessibleChild(*this, row, header().outlineColumn()));
    QAccessible::updateAccessibility(&event);
}

} // namespace tabulon
