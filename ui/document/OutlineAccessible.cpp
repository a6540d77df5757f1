#include "ui/document/OutlineAccessible.h"

#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineParts.h"

#include <algorithm>

namespace tabulon {
namespace {

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* outline = qobject_cast<OutlineSourceView*>(object);
    return outline ? new OutlineAccessible(outline) : nullptr;
}

} // namespace

void installOutlineAccessibility() {
    QAccessible::installFactory(makeInterface);
}

int accessibleChild(const OutlineSourceView& outline, int row, Column column) {
    const std::vector<Column> shown = outline.header().shownColumns();
    const auto columns = static_cast<int>(shown.size());
    return columns + row * columns + static_cast<int>(std::ranges::find(shown, column) - shown.begin());
}

qint64 OutlineAccessible::firstKeyOf(qint64 row) const {
    return (row + 1) * static_cast<qint64>(outline()->header().columns().size());
}

qint64 OutlineAccessible::keyOf(qint64 row, Column column) const {
    return firstKeyOf(row) + outline()->header().sectionOf(column);
}

OutlineAccessible::OutlineAccessible(OutlineSourceView* outline)
    : QAccessibleWidget(outline, QAccessible::Tree) {}

OutlineAccessible::~OutlineAccessible() {
    for (const QAccessible::Id id : std::as_const(children_))
        QAccessible::deleteAccessibleInterface(id);
}

OutlineSourceView* OutlineAccessible::outline() const {
    return static_cast<OutlineSourceView*>(widget());
}

void* OutlineAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

int OutlineAccessible::rowCount() const {
    return outline()->rowCount();
}

int OutlineAccessible::columnCount() const {
    return outline()->model() ? static_cast<int>(outline()->header().shownColumns().size()) : 0;
}

int OutlineAccessible::childCount() const {
    return (rowCount() + 1) * columnCount();
}

QAccessibleInterface* OutlineAccessible::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    const std::vector<Column> columns = outline()->header().shownColumns();
    const auto number = static_cast<std::size_t>(index);
    const Column column = columns[number % columns.size()];
    return number < columns.size() ? title(column)
                                   : cell(static_cast<int>(number / columns.size()) - 1, column);
}

QAccessibleInterface* OutlineAccessible::keep(qint64 key, QAccessibleInterface* made) const {
    children_.insert(key, QAccessible::registerAccessibleInterface(made));
    return made;
}

QAccessibleInterface* OutlineAccessible::title(Column column) const {
    const qint64 key = keyOf(-1, column);
    if (const auto known = children_.constFind(key); known != children_.constEnd())
        return QAccessible::accessibleInterface(*known);
    return keep(key, new OutlineTitle(outline(), column));
}

QAccessibleInterface* OutlineAccessible::cell(int row, Column column) const {
    const qint64 key = keyOf(row, column);
    if (const auto known = children_.constFind(key); known != children_.constEnd())
        return QAccessible::accessibleInterface(*known);
    return keep(key, new OutlineCell(outline(), row, column));
}

int OutlineAccessible::indexOfChild(const QAccessibleInterface* child) const {
    if (!child || child->parent() != this || !child->isValid())
        return -1;
    if (const auto* cell = dynamic_cast<const OutlineCell*>(child))
        return accessibleChild(*outline(), cell->rowIndex(), cell->column());
    for (int column = 0; column < columnCount(); ++column)
        if (this->child(column) == child)
            return column;
    return -1;
}

QAccessibleInterface* OutlineAccessible::childAt(int x, int y) const {
    const QModelIndex index = outline()->indexAt(outline()->viewport()->mapFromGlobal(QPoint(x, y)));
    if (!index.isValid())
        return nullptr;
    return cell(index.row(), outline()->header().columnAt(index.column()));
}

QAccessibleInterface* OutlineAccessible::focusChild() const {
    const QModelIndex current = outline()->currentIndex();
    return current.isValid() ? cell(current.row(), outline()->header().outlineColumn()) : nullptr;
}

QAccessibleInterface* OutlineAccessible::cellAt(int row, int column) const {
    const bool exists = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return exists ? child((row + 1) * columnCount() + column) : nullptr;
}

int OutlineAccessible::selectedRowCount() const {
    std::size_t count = 0;
    if (rowCount() > 0)
        for (const RowRange& range : outline()->selectedRowSet())
            count += range.count;
    return static_cast<int>(count);
}

int OutlineAccessible::selectedCellCount() const {
    return selectedRowCount() * columnCount();
}

QList<int> OutlineAccessible::selectedRows() const {
    QList<int> rows;
    if (rowCount() == 0)
        return rows;
    const QRect area = outline()->viewport()->rect();
    const QModelIndex last = outline()->indexAt(area.bottomLeft());
    const int end = last.isValid() ? last.row() : rowCount() - 1;
    for (int row = outline()->indexAt(area.topLeft()).row(); row >= 0 && row <= end; ++row)
        if (isRowSelected(row))
            rows << row;
    return rows;
}

QList<QAccessibleInterface*> OutlineAccessible::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows())
        for (int column = 0; column < columnCount(); ++column)
            cells << cellAt(row, column);
    return cells;
}

QString OutlineAccessible::columnDescription(int column) const {
    return column >= 0 && column < columnCount() ? child(column)->text(QAccessible::Name) : QString();
}

bool OutlineAccessible::isRowSelected(int row) const {
    return row >= 0 && row < rowCount() &&
           outline()->selectionModel()->isSelected(outline()->model()->index(row, 0));
}

bool OutlineAccessible::selectRow(int row) {
    if (row < 0 || row >= rowCount())
        return false;
    outline()->goToRow(static_cast<std::size_t>(row));
    return true;
}

bool OutlineAccessible::unselectRow(int row) {
    if (!isRowSelected(row))
        return false;
    outline()->selectionModel()->select(outline()->model()->index(row, 0),
                                        QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    return true;
}

void OutlineAccessible::forgetFrom(qint64 firstKey) {
    for (auto child = children_.begin(); child != children_.end();) {
        if (child.key() < firstKey) {
            ++child;
            continue;
        }
        QAccessible::deleteAccessibleInterface(*child);
        child = children_.erase(child);
    }
}

// Parts above the change are still right. All others are created again when they are requested.
void OutlineAccessible::modelChange(QAccessibleTableModelChangeEvent* event) {
    using Event = QAccessibleTableModelChangeEvent;
    if (event->modelChangeType() == Event::RowsInserted || event->modelChangeType() == Event::RowsRemoved)
        forgetFrom(firstKeyOf(event->firstRow()));
    else if (event->modelChangeType() != Event::DataChanged)
        forgetFrom(firstKeyOf(0));
}

} // namespace tabulon
