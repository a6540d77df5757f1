// Painting the rows of the outline: selection, triangles of folders, images, texts, separator lines.
#include "ui/Icons.h"
#include "ui/Strings.h"
#include "ui/document/OutlineHeader.h"
#include "ui/document/OutlineModel.h"
#include "ui/document/OutlineWidget.h"
#include "window/ViewController.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

namespace tabulon {
namespace {

constexpr int kLeftMargin = 4;
constexpr int kGap = OutlineHeader::kMargin;
constexpr int kRoomForName = 160; // in pixels, kept free in the column at any depth
constexpr double kSecondaryFaintness = 0.32;
constexpr int kGroundMargin = 4;     // beside a text with its own background
constexpr double kTriangleUnit = 16; // the triangle is drawn for a box of this size

} // namespace

OutlineWidget::NameCellLayout OutlineWidget::layOutNameCell(int row, const CellContent& cell) const {
    const QRect area = cellRect(row, OutlineHeader::sectionOf(Column::Name));
    const QSize image(iconSize_, iconSize_);
    const int imageTop = area.top() + (area.height() - iconSize_) / 2;
    NameCellLayout layout;
    const int indent = (iconSize_ + 2) * controller_->outline().levelForRow(static_cast<std::size_t>(row));
    int x = area.left() + kLeftMargin + std::min(indent, std::max(0, area.width() - kRoomForName));
    layout.triangle = {x, area.top(), iconSize_, area.height()};
    x += iconSize_ + 2;
    if (cell.statusShown) {
        layout.status = {{x, imageTop}, image};
        x += iconSize_ + kGap;
    }
    layout.icon = {{x, imageTop}, image};
    x += iconSize_ + kGap;
    const int indicatorRoom = cell.indicatorImage.empty() ? 0 : iconSize_ + kGap;
    const int markRoom = cell.labelMark ? iconSize_ + kGap : 0;
    const int textRoom = std::max(0, area.right() - kGap - indicatorRoom - markRoom - x);
    const int textWidth =
        std::min(textRoom, fontMetrics().horizontalAdvance(oneLine(cell.text.string.view(), textRoom)) + 1);
    layout.text = {x, area.top(), textWidth, area.height()};
    if (indicatorRoom > 0)
        layout.indicator = {{x + textWidth + kGap, imageTop}, image};
    if (markRoom > 0)
        layout.labelMark = {{x + textWidth + kGap + indicatorRoom, imageTop}, image};
    return layout;
}

QRect OutlineWidget::textArea(int row, Column column) const {
    return cellRect(row, OutlineHeader::sectionOf(column)).adjusted(kGap, 0, -kGap, 0);
}

void OutlineWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    if (!controller_)
        return;
    const int first = std::max(0, rowAtY(event->rect().top()));
    const int last = std::min(rows_->rowCount() - 1, rowAtY(event->rect().bottom()));
    for (int row = first; row <= last; ++row)
        paintRow(painter, row);
    paintDropSpot(painter);
}

QPalette::ColorGroup OutlineWidget::colorGroup() const {
    return hasFocus() && isActiveWindow() ? QPalette::Active : QPalette::Inactive;
}

bool OutlineWidget::rowIsSelected(int row) const {
    return selectionModel()->isSelected(indexOfRow(row));
}

QColor OutlineWidget::textColor(const ColoredText& text, bool selected) const {
    if (selected)
        return palette().color(colorGroup(), QPalette::HighlightedText);
    const QColor plain = palette().color(QPalette::Text);
    return text.color ? readableColor(*text.color, palette().color(QPalette::Base), plain) : plain;
}

QColor OutlineWidget::secondaryTextColor(const ColoredText& text, bool selected) const {
    const QColor color = textColor(text, selected);
    return selected || text.color ? color
                                  : mixedColor(color, palette().color(QPalette::Base), kSecondaryFaintness);
}

void OutlineWidget::paintRow(QPainter& painter, int row) const {
    const bool selected = rowIsSelected(row);
    const QRect area = rowRect(row);
    if (selected) {
        painter.fillRect(area, palette().color(colorGroup(), QPalette::Highlight));
    } else if (currentIndex().row() == row && hasFocus() && selectionModel()->hasSelection()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(area.adjusted(0, 0, -1, -1));
    }
    for (const Column column : header_->shownColumns()) {
        if (column == Column::Name)
            paintNameCell(painter, row, selected);
        else
            paintTextCell(painter, row, column, selected);
    }
}

void OutlineWidget::paintTextCell(QPainter& painter, int row, Column column, bool selected) const {
    const CellContent cell =
        controller_->cells().viewForTableColumn(column, static_cast<std::size_t>(row), selected);
    paintText(painter, textArea(row, column), cell.text, secondaryTextColor(cell.text, selected));
}

void OutlineWidget::paintSeparator(QPainter& painter, const QRect& area, int left, bool selected) const {
    const QColor text = textColor({}, selected);
    const QColor line = selected ? text : mixedColor(text, palette().color(QPalette::Base), 0.7);
    painter.fillRect(QRect(left, area.center().y(), area.right() - kGap - left, 1), line);
}

void OutlineWidget::paintNameCell(QPainter& painter, int row, bool selected) const {
    const auto number = static_cast<std::size_t>(row);
    const CellContent cell = controller_->cells().viewForTableColumn(Column::Name, number, selected);
    const NameCellLayout layout = layOutNameCell(row, cell);
    const QRect area = cellRect(row, OutlineHeader::sectionOf(Column::Name));
    if (cell.kind == CellKind::Separator)
        return paintSeparator(painter, area, layout.icon.left(), selected);
    const QColor color = textColor(cell.text, selected);
    painter.save();
    painter.setClipRect(area);
    const Bookmark& item = controller_->outline().itemAtRow(number);
    if (item.isFolder()) {
        const QColor faint =
            mixedColor(selected ? color : palette().color(QPalette::Text),
                       palette().color(selected ? QPalette::Highlight : QPalette::Base), 0.35);
        paintTriangle(painter, layout.triangle, item.showHier(), faint);
    }
    paintImage(painter, layout.status, cell.statusImage);
    if (selected && colorGroup() == QPalette::Active)
        paintTintedImage(painter, layout.icon, cell.icon, color);
    else
        paintImage(painter, layout.icon, cell.icon);
    paintText(painter, layout.text, cell.text, color);
    paintImage(painter, layout.indicator, cell.indicatorImage);
    if (cell.labelMark)
        labelSwatch(*cell.labelMark).paint(&painter, layout.labelMark);
    painter.restore();
}

void OutlineWidget::paintTriangle(QPainter& painter, const QRect& rect, bool expanded,
                                  const QColor& color) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect).center());
    painter.scale(iconSize_ / kTriangleUnit, iconSize_ / kTriangleUnit);
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

void OutlineWidget::paintText(QPainter& painter, const QRect& rect, const ColoredText& text,
                              const QColor& color) const {
    if (rect.width() <= 0 || text.string.isEmpty())
        return;
    const QString line = oneLine(text.string.view(), rect.width());
    const QString shown = fontMetrics().elidedText(line, Qt::ElideRight, rect.width());
    if (text.color)
        paintGround(painter, rect, shown, *text.color);
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

// A label's colour that cannot be seen on the background of the rows has a background of its own.
void OutlineWidget::paintGround(QPainter& painter, const QRect& rect, const QString& text,
                                const LabelColor& color) const {
    const std::optional<QColor> ground = groundForLabel(color, palette().color(QPalette::Base));
    if (!ground)
        return;
    QRect area(rect.left(), 0, std::min(rect.width(), fontMetrics().horizontalAdvance(text)),
               std::min(rect.height() - 2, fontMetrics().height() + 2));
    area.moveCenter({area.center().x(), rect.center().y()});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(*ground);
    painter.drawRoundedRect(area.adjusted(-kGroundMargin, 0, kGroundMargin, 0), kGroundMargin, kGroundMargin);
    painter.restore();
}

void OutlineWidget::paintImage(QPainter& painter, const QRect& rect, std::string_view name) const {
    if (name.empty() || rect.isEmpty())
        return;
    icon(name).paint(&painter, rect);
}

// A coloured image cannot be seen on a selection of the same colour.
void OutlineWidget::paintTintedImage(QPainter& painter, const QRect& rect, std::string_view name,
                                     const QColor& color) const {
    if (name.empty())
        return;
    QPixmap image = icon(name).pixmap(rect.size(), devicePixelRatioF());
    QPainter tint(&image);
    tint.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tint.fillRect(image.rect(), color);
    tint.end();
    painter.drawPixmap(rect.topLeft(), image);
}

const QIcon& OutlineWidget::icon(std::string_view name) const {
    QIcon& kept = icons_[QByteArrayView(name.data(), static_cast<qsizetype>(name.size()))];
    if (kept.isNull())
        kept = iconNamed(name);
    return kept;
}

} // namespace tabulon
