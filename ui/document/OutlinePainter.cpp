#include "ui/document/OutlinePainter.h"

#include "ui/Icons.h"
#include "ui/Strings.h"
#include "ui/document/OutlineGeometry.h"
#include "ui/document/OutlineHeader.h"
#include "window/RowSource.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace tabulon {
namespace {

constexpr double kSecondaryFaintness = 0.32;
constexpr double kLineFaintness = 0.7;
constexpr double kTriangleFaintness = 0.35;
constexpr int kGroundMargin = 4;     // beside a text with its own background
constexpr double kTriangleUnit = 16; // the triangle is drawn for a box of this size
constexpr std::size_t kMostRowsInPicture = 8;
constexpr int kWidestPicture = 320;
constexpr int kPictureMargin = 4;
constexpr int kSpotLineWidth = 2;

} // namespace

QColor OutlinePainter::color(QPalette::ColorRole role) const {
    return parts_.area.palette().color(role);
}

QColor OutlinePainter::textColor(const ColoredText& text, const RowLook& look) const {
    if (look.selected)
        return parts_.area.palette().color(look.colors, QPalette::HighlightedText);
    const QColor plain = color(QPalette::Text);
    return text.color ? readableColor(*text.color, color(QPalette::Base), plain) : plain;
}

QColor OutlinePainter::secondaryTextColor(const ColoredText& text, const RowLook& look) const {
    const QColor shown = textColor(text, look);
    return look.selected || text.color ? shown
                                       : mixedColor(shown, color(QPalette::Base), kSecondaryFaintness);
}

void OutlinePainter::paintRow(QPainter& painter, int row, const RowLook& look) const {
    const QRect area = parts_.geometry.rowRect(row);
    if (look.selected) {
        painter.fillRect(area, parts_.area.palette().color(look.colors, QPalette::Highlight));
    } else if (look.framed) {
        painter.setPen(color(QPalette::Highlight));
        painter.drawRect(area.adjusted(0, 0, -1, -1));
    }
    for (const Column column : parts_.header.shownColumns()) {
        if (column == parts_.header.outlineColumn())
            paintOutlineCell(painter, row, look);
        else
            paintTextCell(painter, row, column, look);
    }
}

void OutlinePainter::paintTextCell(QPainter& painter, int row, Column column, const RowLook& look) const {
    const CellContent cell =
        parts_.source.viewForTableColumn(column, static_cast<std::size_t>(row), look.selected);
    paintText(painter, parts_.geometry.textArea(row, column), cell.text, secondaryTextColor(cell.text, look));
}

void OutlinePainter::paintSeparator(QPainter& painter, const QRect& area, int left,
                                    const QColor& color) const {
    const int right = area.right() - OutlineHeader::kMargin;
    painter.fillRect(QRect(left, area.center().y(), right - left, 1), color);
}

void OutlinePainter::paintOutlineCell(QPainter& painter, int row, const RowLook& look) const {
    const auto number = static_cast<std::size_t>(row);
    const Column column = parts_.header.outlineColumn();
    const CellContent cell = parts_.source.viewForTableColumn(column, number, look.selected);
    const TreePlace place = parts_.source.treePlace(number);
    const OutlineCellParts parts = parts_.geometry.outlineCell(row, place.level, cell);
    const QRect area = parts_.geometry.cellRect(row, column);
    const QColor base = color(QPalette::Base);
    const QColor shown = textColor(cell.text, look);
    if (cell.kind == CellKind::Separator)
        return paintSeparator(painter, area, parts.icon.left(),
                              look.selected ? shown : mixedColor(shown, base, kLineFaintness));
    painter.save();
    painter.setClipRect(area);
    if (place.isFolder) {
        const QColor faint =
            mixedColor(look.selected ? shown : color(QPalette::Text),
                       look.selected ? color(QPalette::Highlight) : base, kTriangleFaintness);
        paintTriangle(painter, parts.triangle, place.isExpanded, faint);
    }
    paintImage(painter, parts.status, cell.statusImage);
    if (look.selected && look.colors == QPalette::Active)
        paintTintedImage(painter, parts.icon, cell.icon, shown);
    else
        paintImage(painter, parts.icon, cell.icon);
    paintText(painter, parts.text, cell.text, shown);
    paintImage(painter, parts.indicator, cell.indicatorImage);
    if (cell.labelMark)
        labelSwatch(*cell.labelMark).paint(&painter, parts.labelMark);
    painter.restore();
}

void OutlinePainter::paintTriangle(QPainter& painter, const QRect& rect, bool expanded,
                                   const QColor& color) const {
    const double scale = parts_.geometry.iconSize() / kTriangleUnit;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect).center());
    painter.scale(scale, scale);
    if (expanded)
        painter.rotate(90);
    QPainterPath path;
    path.moveTo(-1.8, -3.8);
    path.lineTo(2, 0);
    path.lineTo(-1.8, 3.8);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);
    painter.restore();
}

void OutlinePainter::paintText(QPainter& painter, const QRect& rect, const ColoredText& text,
                               const QColor& color) const {
    if (rect.width() <= 0 || text.string.isEmpty())
        return;
    const QString line = oneLine(text.string.view(), rect.width());
    const QString shown = parts_.area.fontMetrics().elidedText(line, Qt::ElideRight, rect.width());
    if (text.color)
        paintGround(painter, rect, shown, *text.color);
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

// A label's colour that cannot be seen on the background of the rows has a background of its own.
void OutlinePainter::paintGround(QPainter& painter, const QRect& rect, const QString& text,
                                 const LabelColor& label) const {
    const std::optional<QColor> ground = groundForLabel(label, color(QPalette::Base));
    if (!ground)
        return;
    const QFontMetrics metrics = parts_.area.fontMetrics();
    QRect area(rect.left(), 0, std::min(rect.width(), metrics.horizontalAdvance(text)),
               std::min(rect.height() - 2, metrics.height() + 2));
    area.moveCenter({area.center().x(), rect.center().y()});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(*ground);
    painter.drawRoundedRect(area.adjusted(-kGroundMargin, 0, kGroundMargin, 0), kGroundMargin, kGroundMargin);
    painter.restore();
}

void OutlinePainter::paintImage(QPainter& painter, const QRect& rect, std::string_view name) const {
    if (name.empty() || rect.isEmpty())
        return;
    icon(name).paint(&painter, rect);
}

// A coloured image cannot be seen on a selection of the same colour.
void OutlinePainter::paintTintedImage(QPainter& painter, const QRect& rect, std::string_view name,
                                      const QColor& color) const {
    if (name.empty())
        return;
    QPixmap image = icon(name).pixmap(rect.size(), parts_.area.devicePixelRatioF());
    QPainter tint(&image);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(image.rect(), color);
    tint.end();
    painter.drawPixmap(rect.topLeft(), image);
}

const QIcon& OutlinePainter::icon(std::string_view name) const {
    QIcon& kept = icons_[QByteArrayView(name.data(), static_cast<qsizetype>(name.size()))];
    if (kept.isNull())
        kept = iconNamed(name);
    return kept;
}

void OutlinePainter::paintDropSpot(QPainter& painter, const DropSpot& spot) const {
    const OutlineGeometry& geometry = parts_.geometry;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(parts_.area.palette().color(QPalette::Active, QPalette::Highlight), kSpotLineWidth));
    if (!spot.row || (spot.item && !spot.childIndex)) {
        const QRect area =
            spot.row ? geometry.rowRect(static_cast<int>(*spot.row)) : parts_.area.viewport()->rect();
        painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), 4, 4);
        return;
    }
    const QRect below = geometry.rowRect(static_cast<int>(*spot.row));
    const QRect name = geometry.cellRect(0, parts_.header.outlineColumn());
    const int indent = geometry.indentation() * (spot.level + 1);
    const int x = name.left() + std::min(indent, std::max(0, name.width() - geometry.iconSize()));
    painter.drawEllipse(QPoint(x, below.top()), 3, 3);
    painter.drawLine(x + 3, below.top(), below.right(), below.top());
}

QPixmap OutlinePainter::pictureOfRows(const RowSet& rows) const {
    std::vector<std::size_t> shown;
    for (const RowRange& range : rows)
        for (std::size_t i = 0; i < range.count && shown.size() < kMostRowsInPicture; ++i)
            shown.push_back(range.first + i);
    const int height = parts_.geometry.rowHeight();
    const QSize size(
        std::min(kWidestPicture, parts_.geometry.cellRect(0, parts_.header.outlineColumn()).width()),
        height * static_cast<int>(shown.size()));
    const double ratio = parts_.area.devicePixelRatioF();
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(0.8);
    painter.setFont(parts_.area.font());
    int top = 0;
    for (const std::size_t row : shown) {
        paintDraggedRow(painter, row, QRect(0, top, size.width(), height));
        top += height;
    }
    return picture;
}

void OutlinePainter::paintDraggedRow(QPainter& painter, std::size_t row, const QRect& area) const {
    const CellContent cell = parts_.source.viewForTableColumn(parts_.header.outlineColumn(), row, true);
    const QColor text = color(QPalette::HighlightedText);
    painter.fillRect(area, color(QPalette::Highlight));
    if (cell.kind == CellKind::Separator)
        return paintSeparator(painter, area, kPictureMargin, text);
    paintTintedImage(painter, parts_.geometry.imageRect(kPictureMargin, area), cell.icon, text);
    const int left = parts_.geometry.iconSize() + 10;
    paintText(painter, area.adjusted(left, 0, -kPictureMargin, 0), {.string = cell.text.string, .color = {}},
              text);
}

} // namespace tabulon
