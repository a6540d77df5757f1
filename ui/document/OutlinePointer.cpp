#include "ui/document/OutlinePointer.h"

#include "ui/Strings.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineRowsView.h"
#include "window/RowSource.h"

namespace tabulon {

std::optional<std::size_t> OutlinePointer::rowAt(const QPoint& point) const {
    const QModelIndex index = view_.indexAt(point);
    return index.isValid() ? std::optional(static_cast<std::size_t>(index.row())) : std::nullopt;
}

std::optional<std::size_t> OutlinePointer::triangleAt(const QPoint& point) const {
    const QModelIndex index = view_.indexAt(point);
    if (!index.isValid() || view_.header().columnAt(index.column()) != view_.header().outlineColumn())
        return std::nullopt;
    const auto row = static_cast<std::size_t>(index.row());
    const TreePlace place = source_.treePlace(row);
    const OutlineCellParts parts = view_.geometry().outlineCell(index.row(), place.level, {});
    const bool hit = place.isFolder && parts.triangle.contains(point);
    return hit ? std::optional(row) : std::nullopt;
}

QString OutlinePointer::toolTipAt(const QPoint& point) const {
    const QModelIndex index = view_.indexAt(point);
    if (!index.isValid())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const Column column = view_.header().columnAt(index.column());
    const bool selected = view_.selectionModel()->isSelected(index);
    const CellContent cell = source_.viewForTableColumn(column, row, selected);
    QRect textRect = view_.geometry().textArea(index.row(), column);
    if (column == view_.header().outlineColumn() && cell.kind == CellKind::NameView) {
        const OutlineCellParts parts =
            view_.geometry().outlineCell(index.row(), source_.treePlace(row).level, cell);
        if (parts.icon.contains(point) && !cell.iconToolTip.isEmpty())
            return toolTipText(cell.iconToolTip.view());
        if (parts.indicator.contains(point) && !cell.indicatorToolTip.isEmpty())
            return toolTipText(cell.indicatorToolTip.view());
        textRect = parts.text;
    }
    if (const Text tip = source_.toolTipForCell(column, row); !tip.isEmpty())
        return toolTipText(tip.view());
    const QString line = oneLine(cell.text.string.view(), textRect.width());
    const bool cut = view_.fontMetrics().horizontalAdvance(line) > textRect.width();
    return cut ? toolTipText(cell.text.string.view()) : QString();
}

} // namespace tabulon
