#include "ui/document/OutlineHeader.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOptionHeader>

#include <algorithm>

namespace tabulon {
namespace {

constexpr double kNameShare = 0.45;
constexpr int kName = OutlineHeader::sectionOf(Column::Name);
constexpr int kURL = OutlineHeader::sectionOf(Column::URL);
constexpr int kTags = OutlineHeader::sectionOf(Column::Tags);

} // namespace

OutlineHeader::OutlineHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
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

void OutlineHeader::arrange() {
    const QScopedValueRollback arranging(arranging_, true);
    const int tags = isSectionHidden(kTags) ? 0 : fitting(tagsWidth_);
    const int share = static_cast<int>((width_ - tags) * kNameShare);
    const int name = std::min(fitting(nameWidth_.value_or(share)), width_ - tags - kSmallestColumn);
    resizeSection(kName, std::max(kSmallestColumn, name));
    if (tags > 0)
        resizeSection(kTags, tags);
    resizeSection(kURL, std::max(kSmallestColumn, width_ - sectionSize(kName) - tags));
}

// Returns the nearest width that leaves the smallest width for each other column.
int OutlineHeader::fitting(int width) const {
    const int others = isSectionHidden(kTags) ? 1 : 2;
    return std::max(kSmallestColumn, std::min(width, width_ - others * kSmallestColumn));
}

void OutlineHeader::setNameWidth(std::optional<int> width) {
    nameWidth_ = width;
    layOutAnew();
}

void OutlineHeader::showTags(std::size_t index, int width) {
    const QScopedValueRollback arranging(arranging_, true);
    tagsWidth_ = width;
    setSectionHidden(kTags, false);
    moveSection(visualIndex(kTags), static_cast<int>(std::min<std::size_t>(index, kTags)));
    layOutAnew();
}

void OutlineHeader::hideTags() {
    setSectionHidden(kTags, true);
    layOutAnew();
}

std::optional<std::size_t> OutlineHeader::tagsIndex() const {
    if (isSectionHidden(kTags))
        return std::nullopt;
    return static_cast<std::size_t>(visualIndex(kTags));
}

bool OutlineHeader::isURLFirst() const {
    return visualIndex(kURL) < visualIndex(kName);
}

void OutlineHeader::setURLFirst(bool first) {
    const QScopedValueRollback arranging(arranging_, true);
    if (first != isURLFirst())
        moveSection(visualIndex(kURL), visualIndex(kName));
}

std::vector<Column> OutlineHeader::shownColumns() const {
    std::vector<Column> columns;
    for (int place = 0; place < count(); ++place)
        if (const int section = logicalIndex(place); !isSectionHidden(section))
            columns.push_back(static_cast<Column>(section));
    return columns;
}

void OutlineHeader::setWidth(Column column, int width) {
    width = fitting(width);
    if (column == Column::Name) {
        nameWidth_ = width;
        emit nameWidthChanged(width);
    } else if (column == Column::Tags) {
        tagsWidth_ = width;
        emit tagsWidthChanged(width);
    }
}

void OutlineHeader::sectionWasResized(int section, int oldWidth, int newWidth) {
    if (arranging_ || width_ == 0)
        return;
    if (!nameWidth_)
        nameWidth_ = sectionSize(kName); // so that only this border moves
    if (section == kURL)
        resizeBesideURL(newWidth - oldWidth);
    else
        setWidth(static_cast<Column>(section), newWidth);
    layOutAnew();
}

// A change of URL's right border changes the width of the column to its right.
void OutlineHeader::resizeBesideURL(int change) {
    const std::vector<Column> shown = shownColumns();
    const auto next = std::ranges::find(shown, Column::URL) + 1;
    if (next != shown.end())
        setWidth(*next, sectionSize(sectionOf(*next)) - change);
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
