#include "ui/document/OutlineGeometry.h"

#include "ui/Strings.h"
#include "ui/document/OutlineHeader.h"

#include <QAbstractScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace tabulon {
namespace {

constexpr int kSmallestIcon = 16;
constexpr int kLeftMargin = 4;
constexpr int kGap = OutlineHeader::kMargin;
constexpr int kRoomForName = 160; // kept free in the column at any depth

} // namespace

void OutlineGeometry::setFont(const QFont& font, int rowHeight) {
    const int textHeight = QFontMetrics(font).height();
    iconSize_ = std::max(kSmallestIcon, textHeight * 9 / 10);
    rowHeight_ = std::max({rowHeight, iconSize_ + 4, textHeight + 2});
}

int OutlineGeometry::rowAtY(int y) const {
    return (y + area_.verticalScrollBar()->value()) / rowHeight_;
}

QRect OutlineGeometry::rowRect(int row) const {
    return {-area_.horizontalScrollBar()->value(), row * rowHeight_ - area_.verticalScrollBar()->value(),
            std::max(header_.length(), area_.viewport()->width()), rowHeight_};
}

QRect OutlineGeometry::cellRect(int row, Column column) const {
    const int section = header_.sectionOf(column);
    return {header_.sectionViewportPosition(section), rowRect(row).top(), header_.sectionSize(section),
            rowHeight_};
}

QRect OutlineGeometry::textArea(int row, Column column) const {
    return cellRect(row, column).adjusted(kGap, 0, -kGap, 0);
}

QRect OutlineGeometry::imageRect(int left, const QRect& area) const {
    return {left, area.top() + (area.height() - iconSize_) / 2, iconSize_, iconSize_};
}

OutlineCellParts OutlineGeometry::outlineCell(int row, int level, const CellContent& cell) const {
    const QRect area = cellRect(row, header_.outlineColumn());
    OutlineCellParts parts;
    const int indent = std::min(indentation() * level, std::max(0, area.width() - kRoomForName));
    int x = area.left() + kLeftMargin + indent;
    parts.triangle = {x, area.top(), iconSize_, area.height()};
    x += indentation();
    if (cell.statusShown) {
        parts.status = imageRect(x, area);
        x += iconSize_ + kGap;
    }
    parts.icon = imageRect(x, area);
    x += iconSize_ + kGap;
    const int indicatorRoom = cell.indicatorImage.empty() ? 0 : iconSize_ + kGap;
    const int markRoom = cell.labelMark ? iconSize_ + kGap : 0;
    const int textRoom = std::max(0, area.right() - kGap - indicatorRoom - markRoom - x);
    const QString line = oneLine(cell.text.string.view(), textRoom);
    const int textWidth = std::min(textRoom, area_.fontMetrics().horizontalAdvance(line) + 1);
    parts.text = {x, area.top(), textWidth, area.height()};
    if (indicatorRoom > 0)
        parts.indicator = imageRect(x + textWidth + kGap, area);
    if (markRoom > 0)
        parts.labelMark = imageRect(x + textWidth + kGap + indicatorRoom, area);
    return parts;
}

} // namespace tabulon
