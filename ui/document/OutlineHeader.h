// The column titles of the outline and the width of each column. Name and Tags have the widths that the user
// has set. URL takes the rest, so that the columns together are as wide as the outline.
#pragma once

#include "window/CellContent.h"

#include <QHeaderView>

#include <optional>
#include <vector>

namespace tabulon {

/// Sections are those of OutlineModel: one for each Column, in the order of Column, wherever the user has
/// moved it. Widths are in pixels.
class OutlineHeader : public QHeaderView {
    Q_OBJECT

public:
    /// The space to the left and to the right of each title, and of the texts below it.
    static constexpr int kMargin = 6;
    /// The smallest width of a column.
    static constexpr int kSmallestColumn = 80;

    /// Returns the section of a column.
    static constexpr int sectionOf(Column column) { return static_cast<int>(column); }
    /// Returns the column of a section.
    static constexpr Column columnAt(int section) { return static_cast<Column>(section); }

    /// `parent` owns the header.
    explicit OutlineHeader(QWidget* parent);

    /// Divides `width` among the columns. No column becomes narrower than the smallest width, so they may be
    /// wider than `width` together.
    void layOut(int width);

    /// Sets the width of the Name column. With `nullopt` it is a share of the outline's width.
    void setNameWidth(std::optional<int> width);
    /// Returns the width that was set, or `nullopt` for a share.
    std::optional<int> nameWidth() const { return nameWidth_; }

    /// Shows the tags column as column number `index`, or as the last one if there are fewer.
    void showTags(std::size_t index, int width);
    /// Hides the tags column.
    void hideTags();
    /// Returns the place of the tags column from the left, or `nullopt` while it is hidden.
    std::optional<std::size_t> tagsIndex() const;

    /// Moves the URL column before the Name column or, for false, after it.
    void setURLFirst(bool first);
    /// Returns whether the URL column is before the Name column.
    bool isURLFirst() const;

    /// Returns the columns that are shown, from left to right.
    std::vector<Column> shownColumns() const;

signals:
    /// Emitted when all columns have their new widths.
    void laidOut();

    // Emitted after the user has changed the columns.

    void nameWidthChanged(int width);
    void tagsWidthChanged(int width);
    void columnsMoved();

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

private:
    /// Sets all widths and emits `laidOut`.
    void layOutAnew();
    /// Sets the widths of all columns for `width_`.
    void arrange();
    /// Returns the nearest width that leaves the smallest width for each other column.
    int fitting(int width) const;
    /// Called when a column was resized; takes over what the user did.
    void sectionWasResized(int section, int oldWidth, int newWidth);
    /// Makes the column to the right of URL narrower by `change`.
    void resizeBesideURL(int change);
    /// Sets the width of Name or Tags and reports it.
    void setWidth(Column column, int width);

    /// The width of all columns together.
    int width_ = 0;
    std::optional<int> nameWidth_;
    int tagsWidth_ = 0;
    bool arranging_ = false; // columns are changed by the program
};

} // namespace tabulon
