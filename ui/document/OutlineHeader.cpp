#include "ui/document/OutlineHeader.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionHeader>

#include <algorithm>

namespace tabulon {

OutlineHeader::OutlineHeader(OutlineColumns columns, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), columns_(std::move(columns)), widths_(columns_.size()) {
    setSectionsClickable(true);
    setSectionsMovable(true);
    setHighlightSections(false);
    setMinimumSectionSize(kSmallestColumn);
    connect(this, &QHeaderView::sectionResized, this, &OutlineHeader::sectionWasResized);
    connect(this, &QHeaderView::sectionMoved, this, [this] {
        if (!arranging_)
            emit columnsMoved();
    });
}

int OutlineHeader::sectionOf(Column column) const {
    return static_cast<int>(std::ranges::find(columns_, column, &OutlineColumn::identifier) -
                            columns_.begin());
}

Column OutlineHeader::outlineColumn() const {
    return std::ranges::find(columns_, true, &OutlineColumn::outline)->identifier;
}

void OutlineHeader::setModel(QAbstractItemModel* model) {
    QHeaderView::setModel(model);
    if (!model)
        return;
    for (const OutlineColumn& column : columns_)
        if (column.hideable)
            hideColumn(column.identifier);
}

void OutlineHeader::layOut(int width) {
    if (count() == 0 || width == width_)
        return;
    width_ = width;
    layOutAnew();
}

void OutlineHeader::layOutAnew() {
    arrange();
    emit laidOut();
}

// Columns with a share divide what those with a width of their own leave.
void OutlineHeader::arrange() {
    const QScopedValueRollback arranging(arranging_, true);
    int taken = 0;
    for (const ColumnWidth kind : {ColumnWidth::Set, ColumnWidth::Share, ColumnWidth::Rest}) {
        const int takenBefore = taken;
        for (int section = 0; section < count(); ++section) {
            if (columns_[static_cast<std::size_t>(section)].width != kind || isSectionHidden(section))
                continue;
            const int wanted = kind == ColumnWidth::Rest ? width_ - taken : wantedWidth(section, takenBefore);
            resizeSection(section, std::max(kSmallestColumn, wanted));
            taken += sectionSize(section);
        }
    }
}

int OutlineHeader::wantedWidth(int section, int taken) const {
    const auto number = static_cast<std::size_t>(section);
    if (columns_[number].width == ColumnWidth::Set)
        return fitting(widths_[number].value_or(0));
    const int share = static_cast<int>((width_ - taken) * columns_[number].share);
    return std::min(fitting(widths_[number].value_or(share)), width_ - taken - kSmallestColumn);
}

int OutlineHeader::fitting(int width) const {
    const int others = static_cast<int>(shownColumns().size()) - 1;
    return std::max(kSmallestColumn, std::min(width, width_ - others * kSmallestColumn));
}

void OutlineHeader::setWidth(Column column, std::optional<int> width) {
    widths_[static_cast<std::size_t>(sectionOf(column))] = width;
    layOutAnew();
}

std::optional<int> OutlineHeader::widthOf(Column column) const {
    return widths_[static_cast<std::size_t>(sectionOf(column))];
}

void OutlineHeader::showColumn(Column column, std::size_t index, int width) {
    const QScopedValueRollback arranging(arranging_, true);
    const int section = sectionOf(column);
    widths_[static_cast<std::size_t>(section)] = width;
    setSectionHidden(section, false);
    moveSection(visualIndex(section), static_cast<int>(std::min(index, columns_.size() - 1)));
    layOutAnew();
}

void OutlineHeader::hideColumn(Column column) {
    const QScopedValueRollback arranging(arranging_, true); // Qt reports a width of 0
    setSectionHidden(sectionOf(column), true);
    layOutAnew();
}

std::optional<std::size_t> OutlineHeader::placeOf(Column column) const {
    if (isSectionHidden(sectionOf(column)))
        return std::nullopt;
    return static_cast<std::size_t>(visualIndex(sectionOf(column)));
}

bool OutlineHeader::isBefore(Column column, Column other) const {
    return visualIndex(sectionOf(column)) < visualIndex(sectionOf(other));
}

void OutlineHeader::setBefore(Column column, Column other, bool before) {
    const QScopedValueRollback arranging(arranging_, true);
    if (before != isBefore(column, other))
        moveSection(visualIndex(sectionOf(column)), visualIndex(sectionOf(other)));
}

std::vector<Column> OutlineHeader::shownColumns() const {
    std::vector<Column> columns;
    for (int place = 0; place < count(); ++place)
        if (const int section = logicalIndex(place); !isSectionHidden(section))
            columns.push_back(columnAt(section));
    return columns;
}

void OutlineHeader::takeWidth(Column column, int width) {
    const int taken = fitting(width);
    widths_[static_cast<std::size_t>(sectionOf(column))] = taken;
    emit widthChanged(column, taken);
}

void OutlineHeader::sectionWasResized(int section, int oldWidth, int newWidth) {
    if (arranging_ || width_ == 0)
        return;
    for (std::size_t i = 0; i < columns_.size(); ++i) // so that only this border moves
        if (columns_[i].width == ColumnWidth::Share && !widths_[i])
            widths_[i] = sectionSize(static_cast<int>(i));
    if (columns_[static_cast<std::size_t>(section)].width == ColumnWidth::Rest)
        resizeBesideRest(newWidth - oldWidth);
    else
        takeWidth(columnAt(section), newWidth);
    layOutAnew();
}

void OutlineHeader::resizeBesideRest(int change) {
    const auto isRest = [this](Column column) {
        return columns_[static_cast<std::size_t>(sectionOf(column))].width == ColumnWidth::Rest;
    };
    const std::vector<Column> shown = shownColumns();
    const auto next = std::ranges::find_if(shown, isRest) + 1;
    if (next != shown.end())
        takeWidth(*next, sectionSize(sectionOf(*next)) - change);
}

// The title is drawn by `paintSection`, aligned with the texts below it.
void OutlineHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
    QHeaderView::initStyleOptionForIndex(option, section);
    option->text.clear();
}

void OutlineHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    painter->save();
    QHeaderView::paintSection(painter, rect, section);
    painter->restore();
    const int arrow = isSortIndicatorShown() && sortIndicatorSection() == section ? height() : 0;
    const QRect room = rect.adjusted(kMargin, 0, -kMargin - arrow, 0);
    const QString title = model()->headerData(section, orientation()).toString();
    painter->setPen(palette().color(QPalette::ButtonText));
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      fontMetrics().elidedText(title, Qt::ElideRight, room.width()));
}

} // namespace tabulon
