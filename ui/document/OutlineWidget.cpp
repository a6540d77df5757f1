// Construction of the outline, the functions of OutlineView, the selection, and editing in place.
#include "ui/document/OutlineWidget.h"

#include "ui/document/OutlineEditor.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineModel.h"
#include "window/ViewController.h"

#include <QApplication>
#include <QCursor>
#include <QInputMethod>
#include <QScopedValueRollback>
#include <QScrollBar>

namespace tabulon {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kLargestFont = 500; // limits of the settings
constexpr double kLargestRow = 1000;
constexpr double kLargestColumn = 10000;

} // namespace

OutlineWidget::OutlineWidget(ViewController& controller, QWidget* parent)
    : OutlineSourceView(controller.cells(), parent), controller_(&controller),
      drops_(*this, {controller.outline(), controller.dragging(), controller.items()}),
      keys_(*this, {controller.outline(), controller.editing(), controller.expanding(), controller.opening(),
                    controller.finding()}) {
    setObjectName("outline");
    setItemDelegate(
        new OutlineEditor(*this, {controller.outline(), controller.cells(), controller.fields()}));
    connect(&drops_, &OutlineDrops::markChanged, viewport(), qOverload<>(&QWidget::update));
    setDragEnabled(true);
    setAcceptDrops(true);
    connectHeader();
    applyFont();
}

void OutlineWidget::connectHeader() {
    connect(&header(), &OutlineHeader::columnsMoved, this,
            [this] { controller_->table().outlineViewColumnDidMove(); });
    connect(&header(), &QHeaderView::sectionClicked, this, [this](int section) {
        if (!controller_)
            return;
        controller_->sorting().headerClicked(header().columnAt(section));
        // The header turns the arrow at each click, even if the click does not sort.
        header().setSortIndicator(sortedSection_, sortOrder_);
    });
    connect(&header(), &OutlineHeader::widthChanged, this, [this](Column column, int width) {
        if (column == Column::Tags)
            controller_->table().tagsColumnDidResize(width / pixelsPerPoint());
    });
}

void OutlineWidget::detach() {
    controller_ = nullptr;
    OutlineSourceView::detach();
}

double OutlineWidget::pixelsPerPoint() const {
    return logicalDpiY() / kPointsPerInch;
}

void OutlineWidget::applyFont() {
    QFont font = font_.name.empty() ? QApplication::font() : QFont(QString::fromStdString(font_.name));
    if (font_.size > 0)
        font.setPointSizeF(std::min(font_.size, kLargestFont));
    setRowFont(font, qRound(std::min(rowHeightInPoints_, kLargestRow) * pixelsPerPoint()));
}

void OutlineWidget::showSortIndicator(std::optional<Column> column, SortDirection direction) {
    sortedSection_ = column ? header().sectionOf(*column) : -1;
    sortOrder_ = direction == SortDirection::Ascending ? Qt::AscendingOrder : Qt::DescendingOrder;
    header().setSortIndicatorShown(column.has_value());
    header().setSortIndicator(sortedSection_, sortOrder_);
}

void OutlineWidget::setTableFont(const OutlineFont& font, double rowHeight) {
    const int topRow = geometry().rowAtY(0);
    font_ = font;
    rowHeightInPoints_ = rowHeight;
    applyFont();
    verticalScrollBar()->setValue(topRow * geometry().rowHeight()); // the same rows stay visible
}

void OutlineWidget::addTagsColumn(std::size_t index, double width) {
    const double points = std::clamp(width, 0.0, kLargestColumn);
    header().showColumn(Column::Tags, index, static_cast<int>(points * pixelsPerPoint()));
}

void OutlineWidget::removeTagsColumn() {
    header().hideColumn(Column::Tags);
}

std::optional<std::size_t> OutlineWidget::tagsColumnIndex() const {
    return header().placeOf(Column::Tags);
}

void OutlineWidget::willReloadData() {
    endEditing();              // before the field is destroyed with what was typed
    drops_.mark(std::nullopt); // its item may be removed
    ++changesOfController_;
    rowModel().willReload();
}

void OutlineWidget::didReloadData() {
    rowModel().didReload();
    --changesOfController_;
    updateGeometries();
}

void OutlineWidget::willInsertRows(RowRange rows) {
    ++changesOfController_;
    rowModel().willInsert(rows);
}

void OutlineWidget::didInsertRows() {
    rowModel().didInsert();
    --changesOfController_;
    updateGeometries();
    viewport()->update();
}

void OutlineWidget::willRemoveRows(RowRange rows) {
    ++changesOfController_;
    drops_.mark(std::nullopt);
    moveCursorFrom(static_cast<int>(rows.first), static_cast<int>(rows.first + rows.count) - 1);
    rowModel().willRemove(rows);
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
    const bool hasNext = last + 1 < rowCount();
    const bool hasFolderAbove = first > 0 && parentOf(first) == &controller_->outline().itemAtRow(
                                                                    static_cast<std::size_t>(first) - 1);
    const bool isWholeFolder = hasFolderAbove && !(hasNext && parentOf(last + 1) == parentOf(first));
    return hasNext && !isWholeFolder ? last + 1 : first - 1;
}

void OutlineWidget::didRemoveRows() {
    rowModel().didRemove();
    --changesOfController_;
    updateGeometries();
    viewport()->update();
}

void OutlineWidget::reloadRows(RowRange rows) {
    rowModel().didChange(rows);
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(this, changed);
    reportToScreenReader(event, static_cast<int>(rows.first));
}

RowSet OutlineWidget::selectedRows() const {
    return selectedRowSet();
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
    const int lastColumn = rowModel().columnCount() - 1;
    QItemSelection selection;
    for (const RowRange& range : rows)
        selection.append(QItemSelectionRange(
            rowModel().index(static_cast<int>(range.first), 0),
            rowModel().index(static_cast<int>(range.first + range.count) - 1, lastColumn)));
    if (!rows.empty())
        makeCurrent(selection.contains(currentIndex()) ? currentIndex().row() : selection.last().bottom());
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void OutlineWidget::selectAll() {
    const QScopedValueRollback change(changesOfController_, changesOfController_ + 1);
    OutlineSourceView::selectAll();
}

void OutlineWidget::scrollRowToVisible(std::size_t row) {
    scrollTo(indexOfRow(static_cast<int>(row)));
}

void OutlineWidget::editCell(Column column, std::size_t row) {
    // While a mouse button is held the user selects or drags.
    if (QApplication::mouseButtons() != Qt::NoButton)
        return;
    const QModelIndex index = rowModel().index(static_cast<int>(row), header().sectionOf(column));
    endEditing();
    scrollTo(index);
    edited_ = index;
    edit(index);
}

void OutlineWidget::endEditing() {
    if (QWidget* field = edited_.isValid() ? indexWidget(edited_) : nullptr) {
        QGuiApplication::inputMethod()->commit(); // includes a word that is being composed
        commitData(field);
        closeEditor(field, QAbstractItemDelegate::NoHint);
    }
}

bool OutlineWidget::isEditing() const {
    return edited_.isValid() && indexWidget(edited_);
}

bool OutlineWidget::hasKeyboard() const {
    if (QApplication::activePopupWidget()) // a menu takes the keys
        return false;
    const QWidget* keyboard = window()->focusWidget();
    return !keyboard || keyboard == this || isAncestorOf(keyboard);
}

// While the keyboard is in another field, such as the find field, the place of the pointer has no meaning.
std::optional<Column> OutlineWidget::columnUnderPointer() const {
    if (!hasKeyboard())
        return std::nullopt;
    const QModelIndex index = indexAt(viewport()->mapFromGlobal(QCursor::pos()));
    if (!index.isValid() || selectedRow() != static_cast<std::size_t>(index.row()))
        return std::nullopt;
    return header().columnAt(index.column());
}

// Tab moves from the name to the URL and back.
void OutlineWidget::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const QPersistentModelIndex edited = edited_;
    OutlineSourceView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    const bool goesOn =
        hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
    if (!goesOn || !edited.isValid() || !controller_)
        return;
    const auto row = static_cast<std::size_t>(edited.row());
    const bool toURL = header().columnAt(edited.column()) == Column::Name &&
                       FieldEditing::shouldEdit(Column::URL, controller_->outline().itemAtRow(row));
    controller_->fields().beginEditing(toURL ? Column::URL : Column::Name, row);
}

void OutlineWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    if (controller_)
        controller_->outline().selectionDidChange(changesOfController_ > 0 ? SelectedBy::Program
                                                                           : SelectedBy::User);
    OutlineSourceView::selectionChanged(selected, deselected);
}

} // namespace tabulon
