#include "ui/document/OutlineParts.h"

#include "ui/Strings.h"
#include "ui/document/OutlineHeader.h"

#include <algorithm>

namespace tabulon {

bool OutlinePart::isColumnShown() const {
    return outline_ && outline_->model() &&
           std::ranges::count(outline_->header().shownColumns(), column_) > 0;
}

int OutlinePart::place() const {
    const std::vector<Column> columns = outline_->header().shownColumns();
    return static_cast<int>(std::ranges::find(columns, column_) - columns.begin());
}

int OutlinePart::section() const {
    return outline_->header().sectionOf(column_);
}

QString OutlineTitle::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !isValid())
        return {};
    return outline_->model()->headerData(section(), Qt::Horizontal).toString();
}

QRect OutlineTitle::rect() const {
    if (!isValid())
        return {};
    const OutlineHeader& header = outline_->header();
    const QPoint corner(header.sectionViewportPosition(section()), 0);
    return {header.mapToGlobal(corner), QSize(header.sectionSize(section()), header.height())};
}

OutlineCell::OutlineCell(OutlineSourceView* outline, int row, Column column)
    : OutlinePart(outline, column), row_(row), inOutlineColumn_(column == outline->header().outlineColumn()) {
}

bool OutlineCell::isValid() const {
    return isColumnShown() && row_ < outline_->model()->rowCount();
}

QModelIndex OutlineCell::index() const {
    return outline_->model()->index(row_, section());
}

CellContent OutlineCell::content() const {
    return outline_->source().viewForTableColumn(column(), static_cast<std::size_t>(row_), true);
}

TreePlace OutlineCell::tree() const {
    return inOutlineColumn_ ? outline_->source().treePlace(static_cast<std::size_t>(row_)) : TreePlace();
}

QList<QAccessibleInterface*> OutlineCell::columnHeaderCells() const {
    return isValid() ? QList{parent()->child(place())} : QList<QAccessibleInterface*>{};
}

void* OutlineCell::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QAccessible::Role OutlineCell::role() const {
    if (isValid() && content().kind == CellKind::Separator)
        return QAccessible::Separator;
    return inOutlineColumn_ ? QAccessible::TreeItem : QAccessible::Cell;
}

QAccessible::State OutlineCell::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.selectable = true;
    state.focusable = true;
    state.multiSelectable = true;
    state.selected = isSelected();
    state.focused = outline_->hasFocus() && outline_->currentIndex().row() == row_ && inOutlineColumn_;
    const TreePlace place = tree();
    state.expandable = place.isFolder;
    state.expanded = place.isExpanded;
    state.collapsed = place.isFolder && !place.isExpanded;
    state.offscreen = !outline_->viewport()->rect().intersects(outline_->visualRect(index()));
    state.invisible = state.offscreen;
    return state;
}

QString OutlineCell::text(QAccessible::Text kind) const {
    if (!isValid())
        return {};
    if (kind == QAccessible::Name)
        return oneLine(content().text.string.view());
    if (kind == QAccessible::Description)
        return oneLine(content().indicatorToolTip.view());
    return {};
}

QRect OutlineCell::rect() const {
    if (!isValid())
        return {};
    const QRect area = outline_->visualRect(index());
    return {outline_->viewport()->mapToGlobal(area.topLeft()), area.size()};
}

bool OutlineCell::isSelected() const {
    return isValid() && outline_->selectionModel()->isSelected(index());
}

QStringList OutlineCell::actionNames() const {
    QStringList names;
    if (isValid() && tree().isFolder)
        names << QAccessibleActionInterface::toggleAction();
    if (isValid())
        names << QAccessibleActionInterface::setFocusAction();
    return names;
}

void OutlineCell::doAction(const QString& name) {
    if (!actionNames().contains(name))
        return;
    if (name == QAccessibleActionInterface::toggleAction())
        outline_->toggleRow(static_cast<std::size_t>(row_));
    else
        outline_->goToRow(static_cast<std::size_t>(row_));
}

} // namespace tabulon
