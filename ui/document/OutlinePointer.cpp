#include "ui/document/OutlinePointer.h"

#include "ui/Strings.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineRowsView.h"
#include "window/Outline.h"
#include "window/OutlineCells.h"

#include <QMouseEvent>

namespace tabulon {

std::optional<std::size_t> OutlinePointer::rowAt(const QPoint& point) const {
    const QModelIndex index = view_.indexAt(point);
    return index.isValid() ? std::optional(static_cast<std::size_t>(index.row())) : std::nullopt;
}

std::optional<std::size_t> OutlinePointer::triangleAt(const QPoint& point) const {
    const QModelIndex index = view_.indexAt(point);
    if (!index.isValid() || view_.header().columnAt(index.column()) != Column::Name)
        return std::nullopt;
    const auto row = static_cast<std::size_t>(index.row());
    const NameCellParts places = view_.geometry().nameCell(index.row(), outline_.levelForRow(row), {});
    const bool hit = outline_.itemAtRow(row).isFolder() && places.triangle.contains(point);
    return hit ? std::optional(row) : std::nullopt;
}

bool OutlinePointer::pressTriangle(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return false;
    const std::optional<std::size_t> row = triangleAt(event.position().toPoint());
    if (!row)
        return false;
    Bookmark& item = outline_.itemAtRow(*row);
    const bool withChildren = event.modifiers().testFlag(Qt::AltModifier);
    if (item.showHier())
        withChildren ? outline_.collapseItemWithChildren(item) : outline_.collapseItem(item);
    else
        withChildren ? outline_.expandItemWithChildren(item) : outline_.expandItem(item);
    return true;
}

QString OutlinePointer::toolTipAt(const QPoint& point) const {
    const QModelIndex index = view_.indexAt(point);
    if (!index.isValid())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const Column column = view_.header().columnAt(index.column());
    const bool selected = view_.selectionModel()->isSelected(index);
    const CellContent cell = cells_.viewForTableColumn(column, row, selected);
    QRect textRect = view_.geometry().textArea(index.row(), column);
    if (cell.kind == CellKind::NameView) {
        const NameCellParts places = view_.geometry().nameCell(index.row(), outline_.levelForRow(row), cell);
        if (places.icon.contains(point) && !cell.iconToolTip.isEmpty())
            return toolTipText(cell.iconToolTip.view());
        if (places.indicator.contains(point) && !cell.indicatorToolTip.isEmpty())
            return toolTipText(cell.indicatorToolTip.view());
        textRect = places.text;
    }
    if (const Text tip = cells_.toolTipForCell(column, row); !tip.isEmpty())
        return toolTipText(tip.view());
    const QString line = oneLine(cell.text.string.view(), textRect.width());
    const bool cut = view_.fontMetrics().horizontalAdvance(line) > textRect.width();
    return cut ? toolTipText(cell.text.string.view()) : QString();
}

} // namespace tabulon
