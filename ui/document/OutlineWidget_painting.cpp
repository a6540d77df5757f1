// How rows look: selection, disclosure triangle, images, texts, separator lines.
#include "ui/Icons.h"
#include "ui/Strings.h"
#include "ui/document/OutlineModel.h"
#include "ui/document/OutlineWidget.h"
#include "window/ViewController.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

namespace tabulon {
namespace {

constexpr int kLeftMargin = 4;
constexpr int kIndent = 18;
constexpr int kTriangle = 16;
constexpr int kIcon = 16;
constexpr int kGap = 6;
constexpr int kRoomForName = 160; // is left in the column however deep a row stands
constexpr double kURLFaintness = 0.32;

} // namespace

OutlineWidget::NameCellLayout OutlineWidget::layOutNameCell(int row, const CellContent& cell) const {
    const QRect area = cellRect(row, 0);
    const int iconTop = area.top() + (area.height() - kIcon) / 2;
    NameCellLayout layout;
    const int indent = kIndent * controller_->levelForRow(static_cast<std::size_t>(row));
    int x = area.left() + kLeftMargin + std::min(indent, std::max(0, area.width() - kRoomForName));
    layout.triangle = {x, area.top(), kTriangle, area.height()};
    x += kTriangle + 2;
    if (cell.statusShown) {
        layout.status = {x, iconTop, kIcon, kIcon};
        x += kIcon + kGap;
    }
    layout.icon = {x, iconTop, kIcon, kIcon};
    x += kIcon + kGap;
    const int indicatorRoom = cell.indicatorImage.empty() ? 0 : kIcon + kGap;
    const int textRoom = std::max(0, area.right() - kGap - indicatorRoom - x);
    const int textWidth =
        std::min(textRoom, fontMetrics().horizontalAdvance(oneLine(cell.text.string.view())) + 1);
    layout.text = {x, area.top(), textWidth, area.height()};
    if (indicatorRoom > 0)
        layout.indicator = {x + textWidth + kGap, iconTop, kIcon, kIcon};
    return layout;
}

void OutlineWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    if (!controller_)
        return;
    const int first = std::max(0, rowAtY(event->rect().top()));
    const int last = std::min(rows_->rowCount() - 1, rowAtY(event->rect().bottom()));
    for (int row = first; row <= last; ++row)
        paintRow(painter, row);
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

void OutlineWidget::paintRow(QPainter& painter, int row) const {
    const bool selected = rowIsSelected(row);
    const QRect area = rowRect(row);
    if (selected) {
        painter.fillRect(area, palette().color(colorGroup(), QPalette::Highlight));
    } else if (currentIndex().row() == row && hasFocus() && selectionModel()->hasSelection()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(area.adjusted(0, 0, -1, -1));
    }
    paintNameCell(painter, row, selected);
    const CellContent url =
        controller_->viewForTableColumn(Column::URL, static_cast<std::size_t>(row), selected);
    QColor color = textColor(url.text, selected);
    if (!selected && !url.text.color)
        color = mixedColor(color, palette().color(QPalette::Base), kURLFaintness);
    paintText(painter, cellRect(row, 1).adjusted(kGap, 0, -kGap, 0), oneLine(url.text.string.view()), color);
}

void OutlineWidget::paintNameCell(QPainter& painter, int row, bool selected) const {
    const auto number = static_cast<std::size_t>(row);
    const CellContent cell = controller_->viewForTableColumn(Column::Name, number, selected);
    const NameCellLayout layout = layOutNameCell(row, cell);
    const QRect area = cellRect(row, 0);
    const QColor color = textColor(cell.text, selected);
    painter.save();
    painter.setClipRect(area);
    if (cell.kind == CellKind::Separator) {
        const QColor line = selected ? color : mixedColor(color, palette().color(QPalette::Base), 0.7);
        painter.fillRect(
            QRect(layout.icon.left(), area.center().y(), area.right() - kGap - layout.icon.left(), 1), line);
        painter.restore();
        return;
    }
    const Bookmark& item = controller_->itemAtRow(number);
    if (controller_->isExpandable(item)) {
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
    paintText(painter, layout.text, oneLine(cell.text.string.view()), color);
    paintImage(painter, layout.indicator, cell.indicatorImage);
    painter.restore();
}

void OutlineWidget::paintTriangle(QPainter& painter, const QRect& rect, bool expanded,
                                  const QColor& color) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect).center());
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

void OutlineWidget::paintText(QPainter& painter, const QRect& rect, const QString& text,
                              const QColor& color) const {
    if (rect.width() <= 0 || text.isEmpty())
        return;
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text, Qt::ElideRight, rect.width()));
}

void OutlineWidget::paintImage(QPainter& painter, const QRect& rect, std::string_view name) const {
    if (name.empty() || rect.isEmpty())
        return;
    icon(name).paint(&painter, rect);
}

// A blue image on a blue selection cannot be seen.
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
