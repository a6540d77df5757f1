// The column titles of the outline and the width of each column. The columns together are as wide as the
// outline: one of them takes the rest.
#pragma once

#include "window/OutlineColumns.h"

#include <QHeaderView>

#include <optional>
#include <vector>

namespace tabulon {

/// Sections are those of the model: one for each column in the order of `columns()`, wherever the user has
/// moved it. Widths are in pixels. Every function takes time linear in the number of columns.
class OutlineHeader : public QHeaderView {
    Q_OBJECT

public:
    /// The space to the left and to the right of each title, and of the texts below it.
    static constexpr int kMargin = 6;
    /// The smallest width of a column.
    static constexpr int kSmallestColumn = 80;

    /// `parent` owns the header.
    OutlineHeader(OutlineColumns columns, QWidget* parent);

    /// Returns the columns, shown or not, in the order of their sections.
    const OutlineColumns& columns() const { return columns_; }
    /// Returns the section of a column. Requires: `columns()` contains it.
    int sectionOf(Column column) const;
    /// Returns the column with the icons, the indentation and the triangles of the rows.
    Column outlineColumn() const;
    /// Returns the column of a section.
    Column columnAt(int section) const { return columns_[static_cast<std::size_t>(section)].identifier; }

    /// Sets the model, and hides the columns that are hideable. `nullptr` removes all sections.
    void setModel(QAbstractItemModel* model) override;

    /// Divides `width` among the columns. No column becomes narrower than the smallest width, so they may be
    /// wider than `width` together. Does nothing without a model, and if they were divided for this width
    /// before.
    void layOut(int width);

    /// Sets the width of a column that does not take the rest; `nullopt` for its share.
    void setWidth(Column column, std::optional<int> width);
    /// Returns the width that was set, or `nullopt` if none was.
    std::optional<int> widthOf(Column column) const;

    /// Shows a column as column number `index`, or as the last one if there are fewer.
    void showColumn(Column column, std::size_t index, int width);
    /// Hides a column.
    void hideColumn(Column column);
    /// Returns the place of a column from the left, or `nullopt` while it is hidden. Hidden columns to its
    /// left count.
    std::optional<std::size_t> placeOf(Column column) const;

    /// Moves a column to the place of `other` if it is not on the wanted side of it: before it or, for false,
    /// after it.
    void setBefore(Column column, Column other, bool before);
    /// Returns whether a column is before `other`, from left to right.
    bool isBefore(Column column, Column other) const;

    /// Returns the columns that are shown, from left to right.
    std::vector<Column> shownColumns() const;

signals:
    /// Emitted when all columns have their new widths.
    void laidOut();

    // Emitted after the user has changed the columns.

    void widthChanged(tabulon::Column column, int width);
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
    /// Returns the width for a column that does not take the rest, if `taken` is that of the columns before
    /// it.
    int wantedWidth(int section, int taken) const;
    /// Called when a column was resized; takes over what the user did.
    void sectionWasResized(int section, int oldWidth, int newWidth);
    /// Makes the column to the right of the one that takes the rest narrower by `change`.
    void resizeBesideRest(int change);
    /// Sets the width of a column and reports it.
    void takeWidth(Column column, int width);

    const OutlineColumns columns_;
    /// The widths that were set, by section.
    std::vector<std::optional<int>> widths_;
    /// The width of all columns together.
    int width_ = 0;
    bool arranging_ = false; // columns are changed by the program
};

} // namespace tabulon
