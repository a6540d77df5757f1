// The column titles of the outline and the width of each column. Name and Tags are as wide as they were made;
// URL takes the rest, so that the columns together are as wide as the outline.
#pragma once

#include "window/CellContent.h"

#include <QHeaderView>

#include <optional>
#include <vector>

namespace tabulon {

/// Sections are those of OutlineModel: one for each Column, in its order, wherever the user has moved it.
/// Widths are in pixels.
class OutlineHeader : public QHeaderView {
    Q_OBJECT

public:
    /// Room to the left and to the right of every title, and of the texts below it.
    static constexpr int kMargin = 6;
    static constexpr int kSmallestColumn = 80;

    static constexpr int sectionOf(Column column) { return static_cast<int>(column); }

    explicit OutlineHeader(QWidget* parent);

    /// Shares `width` out among the columns; no column gets narrower than the smallest, even so.
    void layOut(int width);

    /// Nothing lets the Name column follow the width of the outline.
    void setNameWidth(std::optional<int> width);
    std::optional<int> nameWidth() const { return nameWidth_; }

    /// Shows the tags column as the `index`th, or the last where there are fewer.
    void showTags(std::size_t index, int width);
    void hideTags();
    std::optional<std::size_t> tagsIndex() const;

    void setURLFirst(bool first);
    bool isURLFirst() const;

    /// The columns that are shown, from left to right.
    std::vector<Column> shownColumns() const;

signals:
    /// The columns have their new widths, all of them.
    void laidOut();

    // What the user did.

    void nameWidthChanged(int width);
    void tagsWidthChanged(int width);
    void columnsMoved();

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

private:
    void layOutAnew();
    void arrange();
    int fitting(int width) const;
    void sectionWasResized(int section, int oldWidth, int newWidth);
    void resizeBesideURL(int change);
    void setWidth(Column column, int width);

    int width_ = 0;
    std::optional<int> nameWidth_;
    int tagsWidth_ = 0;
    bool arranging_ = false; // what changes now is not the user's doing
};

} // namespace tabulon
