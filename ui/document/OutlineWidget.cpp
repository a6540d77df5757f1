// Construction, geometry, selection and what the controller asks of the view.
#include "ui/document/OutlineWidget.h"

#include "ui/document/OutlineModel.h"
#include "window/ViewController.h"

#include <QApplication>
#include <QScrollBar>

namespace tabulon {
namespace {

constexpr double kPointsPerInch = 72;
constexpr int kSmallestRowHeight = 20; // an icon of 16 and two pixels above and below it
constexpr double kNameShare = 0.45;
constexpr int kSmallestColumn = 80;

RowSet toRowSet(const QItemSelection& selection) {
    std::vector<RowRange> ranges;
    for (const QItemSelectionRange& range : selection)
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

} // namespace

void OutlineHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
    QHeaderView::initStyleOptionForIndex(option, section);
    option->text.prepend("  ");
}

OutlineWidget::OutlineWidget(ViewController& controller, const QStringList& columnTitles, QWidget* parent)
    : QAbstractItemView(parent), controller_(&controller),
      rows_(new OutlineModel(controller, columnTitles, this)), header_(new OutlineHeader(this)) {
    setObjectName("outline");
    setFrameShape(QFrame::NoFrame);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
    header_->setSectionsClickable(false);
    header_->setHighlightSections(false);
    header_->setMinimumSectionSize(kSmallestColumn);
    header_->setStretchLastSection(true);
    showModel(rows_);
    connect(header_, &QHeaderView::sectionResized, this, &OutlineWidget::sectionWasResized);
    applyFont();
}

void OutlineWidget::detach() {
    controller_ = nullptr;
    showModel(nullptr);
}

void OutlineWidget::showModel(QAbstractItemModel* model) {
    header_->setModel(model);
    QAbstractItemView::setModel(model);
}

void OutlineWidget::applyFont() {
    const OutlineFont wanted = controller_->font();
    QFont font = wanted.name.empty() ? QApplication::font() : QFont(QString::fromStdString(wanted.name));
    if (wanted.size > 0)
        font.setPointSizeF(wanted.size);
    QAbstractItemView::setFont(font);
    header_->setFont(QApplication::font());
    const int wantedHeight = qRound(controller_->rowHeight() * logicalDpiY() / kPointsPerInch);
    rowHeight_ = std::max({kSmallestRowHeight, wantedHeight, QFontMetrics(font).height() + 2});
    OutlineWidget::updateGeometries();
}

void OutlineWidget::willReloadData() {
    rows_->willReload();
}

void OutlineWidget::didReloadData() {
    rows_->didReload();
    updateGeometries();
}

void OutlineWidget::willInsertRows(RowRange rows) {
    rows_->willInsert(rows);
}

void OutlineWidget::didInsertRows() {
    rows_->didInsert();
    updateGeometries();
    viewport()->update();
}

void OutlineWidget::willRemoveRows(RowRange rows) {
    rows_->willRemove(rows);
}

void OutlineWidget::didRemoveRows() {
    rows_->didRemove();
    updateGeometries();
    viewport()->update();
}

void OutlineWidget::reloadRows(RowRange rows) {
    rows_->didChange(rows);
}

RowSet OutlineWidget::selectedRows() const {
    return toRowSet(selectionModel()->selection());
}

std::optional<std::size_t> OutlineWidget::selectedRow() const {
    if (!selectionModel()->hasSelection())
        return std::nullopt;
    const QModelIndex current = currentIndex();
    if (current.isValid() && rowIsSelected(current.row()))
        return static_cast<std::size_t>(current.row());
    return static_cast<std::size_t>(selectionModel()->selection().last().bottom());
}

void OutlineWidget::selectRows(const RowSet& rows) {
    const int lastColumn = rows_->columnCount() - 1;
    QItemSelection selection;
    for (const RowRange& range : rows)
        selection.append(
            QItemSelectionRange(rows_->index(static_cast<int>(range.first), 0),
                                rows_->index(static_cast<int>(range.first + range.count) - 1, lastColumn)));
    if (!rows.empty() && !(currentIndex().isValid() && selection.contains(currentIndex())))
        selectionModel()->setCurrentIndex(indexOfRow(selection.last().bottom()),
                                          QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void OutlineWidget::selectAll() {
    QAbstractItemView::selectAll();
}

void OutlineWidget::scrollRowToVisible(std::size_t row) {
    scrollTo(indexOfRow(static_cast<int>(row)));
}

QModelIndex OutlineWidget::indexOfRow(int row) const {
    return rows_->index(row, 0);
}

int OutlineWidget::rowAtY(int y) const {
    return (y + verticalOffset()) / rowHeight_;
}

QRect OutlineWidget::rowRect(int row) const {
    return {-horizontalOffset(), row * rowHeight_ - verticalOffset(),
            std::max(header_->length(), viewport()->width()), rowHeight_};
}

QRect OutlineWidget::cellRect(int row, int column) const {
    return {header_->sectionViewportPosition(column), row * rowHeight_ - verticalOffset(),
            header_->sectionSize(column), rowHeight_};
}

QRect OutlineWidget::visualRect(const QModelIndex& index) const {
    return index.isValid() && controller_ ? cellRect(index.row(), index.column()) : QRect();
}

void OutlineWidget::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid() || !controller_)
        return;
    executeDelayedItemsLayout();
    const QRect rect = visualRect(index);
    const int height = viewport()->height();
    const bool visible = rect.top() >= 0 && rect.bottom() < height;
    if (visible && hint == EnsureVisible)
        return;
    int top = verticalScrollBar()->value() + rect.top();
    if (hint == PositionAtBottom || (hint == EnsureVisible && rect.bottom() >= height))
        top -= height - rowHeight_;
    else if (hint == PositionAtCenter)
        top -= (height - rowHeight_) / 2;
    verticalScrollBar()->setValue(top);
}

QModelIndex OutlineWidget::indexAt(const QPoint& point) const {
    if (!controller_ || point.y() + verticalOffset() < 0)
        return {};
    const int row = rowAtY(point.y());
    const int column = header_->logicalIndexAt(point.x());
    return row < rows_->rowCount() && column >= 0 ? rows_->index(row, column) : QModelIndex();
}

int OutlineWidget::horizontalOffset() const {
    return horizontalScrollBar()->value();
}

int OutlineWidget::verticalOffset() const {
    return verticalScrollBar()->value();
}

bool OutlineWidget::isIndexHidden(const QModelIndex&) const {
    return false;
}

void OutlineWidget::setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) {
    const int lastRow = rows_->rowCount() - 1;
    const int top = std::max(0, rowAtY(std::max(rect.top(), -verticalOffset())));
    const int bottom = std::min(lastRow, rowAtY(rect.bottom()));
    QItemSelection selection;
    if (controller_ && top <= bottom)
        selection.select(rows_->index(top, 0), rows_->index(bottom, rows_->columnCount() - 1));
    selectionModel()->select(selection, command);
}

QRegion OutlineWidget::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    if (!controller_)
        return region;
    const QRect visible = viewport()->rect();
    for (const QItemSelectionRange& range : selection)
        region += rowRect(range.top()).united(rowRect(range.bottom())).intersected(visible);
    return region;
}

void OutlineWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected);
    if (controller_)
        controller_->selectionDidChange();
}

void OutlineWidget::updateGeometries() {
    const int headerHeight = header_->sizeHint().height();
    setViewportMargins(0, headerHeight, 0, 0);
    const QRect area = viewport()->geometry();
    header_->setGeometry(area.left(), area.top() - headerHeight, area.width(), headerHeight);
    const int rows = controller_ ? rows_->rowCount() : 0;
    verticalScrollBar()->setPageStep(area.height());
    verticalScrollBar()->setSingleStep(rowHeight_);
    verticalScrollBar()->setRange(0, std::max(0, rows * rowHeight_ - area.height()));
    horizontalScrollBar()->setPageStep(area.width());
    horizontalScrollBar()->setSingleStep(rowHeight_);
    horizontalScrollBar()->setRange(0, std::max(0, header_->length() - area.width()));
    QAbstractItemView::updateGeometries();
}

void OutlineWidget::scrollContentsBy(int dx, int dy) {
    if (dx != 0)
        header_->setOffset(horizontalOffset());
    scrollDirtyRegion(dx, dy);
    viewport()->scroll(dx, dy);
}

void OutlineWidget::resizeEvent(QResizeEvent* event) {
    QAbstractItemView::resizeEvent(event);
    layOutColumns();
    updateGeometries();
}

void OutlineWidget::changeEvent(QEvent* event) {
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::StyleChange && controller_)
        applyFont();
}

void OutlineWidget::setNameColumnWidth(std::optional<int> width) {
    nameColumnWidth_ = width;
    layOutColumns();
}

void OutlineWidget::layOutColumns() {
    if (!controller_)
        return;
    layingOutColumns_ = true;
    const int share = static_cast<int>(viewport()->width() * kNameShare);
    header_->resizeSection(0, std::max(kSmallestColumn, nameColumnWidth_.value_or(share)));
    layingOutColumns_ = false;
}

void OutlineWidget::sectionWasResized(int section, int /*oldWidth*/, int newWidth) {
    if (section == 0 && !layingOutColumns_) {
        nameColumnWidth_ = newWidth;
        emit nameColumnWidthChanged(newWidth);
    }
    updateGeometries();
    viewport()->update();
}

} // namespace tabulon
