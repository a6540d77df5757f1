#include "ui/document/OutlineRowsView.h"

#include "ui/document/OutlineHeader.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace tabulon {

OutlineRowsView::OutlineRowsView(OutlineColumns columns, QWidget* parent)
    : QAbstractItemView(parent), header_(new OutlineHeader(std::move(columns), this)),
      geometry_(*header_, *this) {
    setFrameShape(QFrame::NoFrame);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    const auto columnsChanged = [this] {
        updateGeometries();
        viewport()->update();
    };
    connect(header_, &OutlineHeader::laidOut, this, columnsChanged);
    connect(header_, &QHeaderView::sectionMoved, this, columnsChanged);
}

void OutlineRowsView::showModel(QAbstractItemModel* model) {
    header_->setModel(model);
    setModel(model);
}

void OutlineRowsView::setRowFont(const QFont& font, int rowHeight) {
    setFont(font);
    header_->setFont(QApplication::font());
    geometry_.setFont(font, rowHeight);
    updateGeometries();
    viewport()->update();
}

RowSet OutlineRowsView::selectedRowSet() const {
    std::vector<RowRange> ranges;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        ranges.push_back({static_cast<std::size_t>(range.top()), static_cast<std::size_t>(range.height())});
    std::ranges::sort(ranges, {}, &RowRange::first);
    RowSet rows;
    for (const RowRange& range : ranges) {
        if (!rows.empty() && rows.back().first + rows.back().count >= range.first)
            rows.back().count = std::max(rows.back().count, range.first + range.count - rows.back().first);
        else
            rows.push_back(range);
    }
    return rows;
}

void OutlineRowsView::goToRow(std::size_t row) {
    const int number = static_cast<int>(row);
    selectionModel()->select(indexOfRow(number),
                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    makeCurrent(number);
}

// Only this function of Qt sets the row from which Shift extends. In this mode it does not select.
void OutlineRowsView::makeCurrent(int row) {
    const SelectionMode mode = selectionMode();
    setSelectionMode(NoSelection);
    setCurrentIndex(indexOfRow(row));
    setSelectionMode(mode);
}

QRect OutlineRowsView::visualRect(const QModelIndex& index) const {
    return index.isValid() && model() ? geometry_.cellRect(index.row(), header_->columnAt(index.column()))
                                      : QRect();
}

void OutlineRowsView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid() || !model())
        return;
    executeDelayedItemsLayout();
    const QRect rect = visualRect(index);
    const int height = viewport()->height();
    const bool visible = rect.top() >= 0 && rect.bottom() < height;
    if (visible && hint == EnsureVisible)
        return;
    int top = verticalOffset() + rect.top();
    if (hint == PositionAtBottom || (hint == EnsureVisible && rect.bottom() >= height))
        top -= height - geometry_.rowHeight();
    else if (hint == PositionAtCenter)
        top -= (height - geometry_.rowHeight()) / 2;
    verticalScrollBar()->setValue(top);
}

QModelIndex OutlineRowsView::indexAt(const QPoint& point) const {
    if (point.y() + verticalOffset() < 0)
        return {};
    const int row = geometry_.rowAtY(point.y());
    const int column = header_->logicalIndexAt(point.x());
    return row < rowCount() && column >= 0 ? model()->index(row, column) : QModelIndex();
}

QModelIndex OutlineRowsView::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const int last = rowCount() - 1;
    if (last < 0)
        return {};
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    const int page = std::max(1, viewport()->height() / geometry_.rowHeight() - 1);
    int row = current;
    switch (action) {
    case MoveUp:
    case MovePrevious:
        row = current - 1;
        break;
    case MoveDown:
    case MoveNext:
        row = current + 1;
        break;
    case MovePageUp:
        row = current - page;
        break;
    case MovePageDown:
        row = current + page;
        break;
    case MoveHome:
        row = 0;
        break;
    case MoveEnd:
        row = last;
        break;
    case MoveLeft:
    case MoveRight:
        break;
    }
    return indexOfRow(std::clamp(row, 0, last));
}

int OutlineRowsView::horizontalOffset() const {
    return horizontalScrollBar()->value();
}

int OutlineRowsView::verticalOffset() const {
    return verticalScrollBar()->value();
}

void OutlineRowsView::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    const QRect area = rect.normalized(); // Qt passes it from where the selection began, also upwards
    const int top = std::max(0, geometry_.rowAtY(std::max(area.top(), -verticalOffset())));
    const int bottom = std::min(rowCount() - 1, geometry_.rowAtY(area.bottom()));
    QItemSelection selection;
    if (top <= bottom)
        selection.select(indexOfRow(top), model()->index(bottom, model()->columnCount() - 1));
    selectionModel()->select(selection, command);
}

QRegion OutlineRowsView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    if (!model())
        return region;
    const QRect visible = viewport()->rect();
    for (const QItemSelectionRange& range : selection)
        region +=
            geometry_.rowRect(range.top()).united(geometry_.rowRect(range.bottom())).intersected(visible);
    return region;
}

// Setting the margins lays out the viewport, and a viewport of another size calls this function again. Where
// that happens during a layout, each would undo the layout of the other without an end.
void OutlineRowsView::updateGeometries() {
    if (updatesGeometries_)
        return;
    const QScopedValueRollback updates(updatesGeometries_, true);
    const int headerHeight = header_->sizeHint().height();
    setViewportMargins(0, headerHeight, 0, 0);
    const int rowHeight = geometry_.rowHeight();
    const int height = viewport()->height();
    verticalScrollBar()->setPageStep(height);
    verticalScrollBar()->setSingleStep(rowHeight);
    verticalScrollBar()->setRange(0, std::max(0, rowCount() * rowHeight - height));
    const QRect area = viewport()->geometry(); // without the scroll bar, or with it
    header_->setGeometry(area.left(), area.top() - headerHeight, area.width(), headerHeight);
    header_->layOut(area.width());
    horizontalScrollBar()->setPageStep(area.width());
    horizontalScrollBar()->setSingleStep(rowHeight);
    horizontalScrollBar()->setRange(0, std::max(0, header_->length() - area.width()));
    QAbstractItemView::updateGeometries();
}

void OutlineRowsView::scrollContentsBy(int dx, int dy) {
    if (dx != 0)
        header_->setOffset(horizontalOffset());
    scrollDirtyRegion(dx, dy);
    viewport()->scroll(dx, dy);
}

} // namespace tabulon
