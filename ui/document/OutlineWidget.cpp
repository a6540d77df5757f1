// Construction, geometry and selection of the outline, and the functions of OutlineView.
#include "ui/document/OutlineWidget.h"

#include "ui/document/OutlineAccessible.h"
#include "ui/document/OutlineEditor.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineModel.h"
#include "window/ViewController.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace tabulon {
namespace {

constexpr double kPointsPerInch = 72;
constexpr int kSmallestIcon = 16;
constexpr double kLargestFont = 500; // limits of the settings
constexpr double kLargestRow = 1000;
constexpr double kLargestColumn = 10000;

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

OutlineWidget::OutlineWidget(ViewController& controller, const QStringList& columnTitles, QWidget* parent)
    : QAbstractItemView(parent), controller_(&controller),
      rows_(new OutlineModel(controller, columnTitles, this)), header_(new OutlineHeader(this)) {
    installOutlineAccessibility();
    setObjectName("outline");
    setFrameShape(QFrame::NoFrame);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new OutlineEditor(*this));
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
    setDragEnabled(true);
    setAcceptDrops(true);
    showModel(rows_);
    header_->hideTags();
    connectHeader();
    applyFont();
}

void OutlineWidget::connectHeader() {
    const auto columnsChanged = [this] {
        updateGeometries();
        viewport()->update();
    };
    connect(header_, &OutlineHeader::laidOut, this, columnsChanged);
    connect(header_, &QHeaderView::sectionMoved, this, columnsChanged);
    connect(header_, &OutlineHeader::columnsMoved, this,
            [this] { controller_->table().outlineViewColumnDidMove(); });
    connect(header_, &QHeaderView::sectionClicked, this, [this](int section) {
        if (!controller_)
            return;
        controller_->sorting().headerClicked(static_cast<Column>(section));
        // The header turns the arrow at each click, even if the click does not sort.
        header_->setSortIndicator(sortedSection_, sortOrder_);
    });
    connect(header_, &OutlineHeader::tagsWidthChanged, this,
            [this](int width) { controller_->table().tagsColumnDidResize(width / pixelsPerPoint()); });
}

void OutlineWidget::detach() {
    controller_ = nullptr;
    showModel(nullptr);
}

void OutlineWidget::showModel(QAbstractItemModel* model) {
    header_->setModel(model);
    QAbstractItemView::setModel(model);
}

double OutlineWidget::pixelsPerPoint() const {
    return logicalDpiY() / kPointsPerInch;
}

void OutlineWidget::applyFont() {
    QFont font = font_.name.empty() ? QApplication::font() : QFont(QString::fromStdString(font_.name));
    if (font_.size > 0)
        font.setPointSizeF(std::min(font_.size, kLargestFont));
    QAbstractItemView::setFont(font);
    header_->setFont(QApplication::font());
    const int textHeight = QFontMetrics(font).height();
    iconSize_ = std::max(kSmallestIcon, textHeight * 9 / 10);
    const int wantedHeight = qRound(std::min(rowHeightInPoints_, kLargestRow) * pixelsPerPoint());
    rowHeight_ = std::max({wantedHeight, iconSize_ + 4, textHeight + 2});
    OutlineWidget::updateGeometries();
    viewport()->update();
}

void OutlineWidget::showSortIndicator(std::optional<Column> column, SortDirection direction) {
    sortedSection_ = column ? OutlineHeader::sectionOf(*column) : -1;
    sortOrder_ = direction == SortDirection::Ascending ? Qt::AscendingOrder : Qt::DescendingOrder;
    header_->setSortIndicatorShown(column.has_value());
    header_->setSortIndicator(sortedSection_, sortOrder_);
}

void OutlineWidget::setTableFont(const OutlineFont& font, double rowHeight) {
    const int topRow = rowAtY(0);
    font_ = font;
    rowHeightInPoints_ = rowHeight;
    applyFont();
    verticalScrollBar()->setValue(topRow * rowHeight_); // the same rows stay visible
}

void OutlineWidget::addTagsColumn(std::size_t index, double width) {
    header_->showTags(index, static_cast<int>(std::clamp(width, 0.0, kLargestColumn) * pixelsPerPoint()));
}

void OutlineWidget::removeTagsColumn() {
    header_->hideTags();
}

std::optional<std::size_t> OutlineWidget::tagsColumnIndex() const {
    return header_->tagsIndex();
}

void OutlineWidget::willReloadData() {
    endEditing();               // before the field is destroyed with what was typed
    showDropSpot(std::nullopt); // its item may be removed
    ++changesOfController_;
    rows_->willReload();
}

void OutlineWidget::didReloadData() {
    rows_->didReload();
    --changesOfController_;
    updateGeometries();
}

void OutlineWidget::willInsertRows(RowRange rows) {
    ++changesOfController_;
    rows_->willInsert(rows);
}

void OutlineWidget::didInsertRows() {
    rows_->didInsert();
    --changesOfController_;
    updateGeometries();
    viewport()->update();
}

void OutlineWidget::willRemoveRows(RowRange rows) {
    ++changesOfController_;
    showDropSpot(std::nullopt);
    moveCursorFrom(static_cast<int>(rows.first), static_cast<int>(rows.first + rows.count) - 1);
    rows_->willRemove(rows);
}

// Qt would make the row above the current one, and scroll to its place before the rows are removed.
void OutlineWidget::moveCursorFrom(int first, int last) {
    const int current = currentIndex().row();
    if (current < first || current > last)
        return;
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(indexOfRow(rowInPlaceOf(first, last)), QItemSelectionModel::NoUpdate);
    setAutoScroll(scrolls);
}

// Returns the row that becomes the current one when these rows are removed: the row after them, or the row
// before them if they are the last rows or all the rows of the folder above them.
int OutlineWidget::rowInPlaceOf(int first, int last) const {
    const auto parentOf = [this](int row) {
        return controller_->outline().itemAtRow(static_cast<std::size_t>(row)).getParent();
    };
    const bool hasNext = last + 1 < rows_->rowCount();
    const bool hasFolderAbove = first > 0 && parentOf(first) == &controller_->outline().itemAtRow(
                                                                    static_cast<std::size_t>(first) - 1);
    const bool isWholeFolder = hasFolderAbove && !(hasNext && parentOf(last + 1) == parentOf(first));
    return hasNext && !isWholeFolder ? last + 1 : first - 1;
}

void OutlineWidget::didRemoveRows() {
    rows_->didRemove();
    --changesOfController_;
    updateGeometries();
    viewport()->update();
}

void OutlineWidget::reloadRows(RowRange rows) {
    rows_->didChange(rows);
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(this, changed);
    event.setChild(accessibleChild(*this, static_cast<int>(rows.first), Column::Name));
    QAccessible::updateAccessibility(&event);
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
    const QScopedValueRollback change(changesOfController_, changesOfController_ + 1);
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
    const QScopedValueRollback change(changesOfController_, changesOfController_ + 1);
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
    const QRect area = rect.normalized(); // Qt passes it from where the selection began, also upwards
    const int top = std::max(0, rowAtY(std::max(area.top(), -verticalOffset())));
    const int bottom = std::min(lastRow, rowAtY(area.bottom()));
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
        controller_->outline().selectionDidChange(changesOfController_ > 0 ? SelectedBy::Program
                                                                           : SelectedBy::User);
    tellAccessibility(QAccessible::SelectionAdd, selected);
    tellAccessibility(QAccessible::SelectionRemove, deselected);
}

void OutlineWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous);
    tellAccessibility(QAccessible::Focus, QItemSelection(current, current));
}

// Reports the first row only to screen readers.
void OutlineWidget::tellAccessibility(QAccessible::Event type, const QItemSelection& items) {
    if (!QAccessible::isActive() || !controller_ || items.isEmpty() || !items.first().isValid())
        return;
    QAccessibleEvent event(this, type);
    event.setChild(accessibleChild(*this, items.first().top(), Column::Name));
    QAccessible::updateAccessibility(&event);
}

// Setting the margins lays out the viewport, and a viewport of another size calls this function again. Where
// that happens during a layout, each would undo the layout of the other without an end.
void OutlineWidget::updateGeometries() {
    if (updatesGeometries_)
        return;
    const QScopedValueRollback updates(updatesGeometries_, true);
    const int headerHeight = header_->sizeHint().height();
    setViewportMargins(0, headerHeight, 0, 0);
    const int rows = controller_ ? rows_->rowCount() : 0;
    const int height = viewport()->height();
    verticalScrollBar()->setPageStep(height);
    verticalScrollBar()->setSingleStep(rowHeight_);
    verticalScrollBar()->setRange(0, std::max(0, rows * rowHeight_ - height));
    const QRect area = viewport()->geometry(); // without the scroll bar, or with it
    header_->setGeometry(area.left(), area.top() - headerHeight, area.width(), headerHeight);
    header_->layOut(area.width());
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

void OutlineWidget::changeEvent(QEvent* event) {
    QAbstractItemView::changeEvent(event);
    const bool looks = event->type() == QEvent::StyleChange || event->type() == QEvent::ApplicationFontChange;
    if (looks && controller_)
        applyFont();
}

} // namespace tabulon
