// The places of rows, cells and the parts of an outline cell. Nothing is painted here.
#pragma once

#include "window/CellContent.h"
#include "window/OutlineColumns.h"

#include <QFont>
#include <QRect>

class QAbstractScrollArea;

namespace tabulon {

class OutlineHeader;

/// The places of the parts of a cell in the outline column, in the viewport. A part that the cell does not
/// have is empty.
struct OutlineCellParts {
    /// As high as the row. A press here expands and collapses a folder.
    QRect triangle;
    /// The square place of the status mark.
    QRect status;
    /// The square place of the icon. Every cell has it.
    QRect icon;
    /// As wide as the name, or as the room for it.
    QRect text;
    /// The square places of the images after the name.
    QRect indicator;
    QRect labelMark;
};

/// Computes places from the header's columns, the scroll bars and the font. All rows have one height, so
/// every function takes constant time. Lengths are in pixels, and places are in the viewport's coordinates.
/// Rows need not exist.
class OutlineGeometry {
public:
    /// Requires: `header` and `area`, whose columns and scroll bars count, outlive this object.
    OutlineGeometry(const OutlineHeader& header, const QAbstractScrollArea& area)
        : header_(header), area_(area) {}

    /// Sets the height of the rows and the size of images for `font`. Rows are higher than `rowHeight` where
    /// the font or its images need it. Images are at least 16 pixels high.
    void setFont(const QFont& font, int rowHeight);
    /// Returns the height of every row.
    int rowHeight() const { return rowHeight_; }
    /// Returns the width and height of every image.
    int iconSize() const { return iconSize_; }
    /// Returns the distance between one level of the tree and the next.
    int indentation() const { return iconSize_ + 2; }

    /// Returns the row at this height of the viewport. It may be beyond the last one, and is 0 or negative
    /// above the first one.
    int rowAtY(int y) const;
    /// Returns the place of a row, as wide as all columns and at least as the viewport.
    QRect rowRect(int row) const;
    /// Returns the place of a cell.
    QRect cellRect(int row, Column column) const;
    /// Returns the part of a cell that is inside its margins.
    QRect textArea(int row, Column column) const;
    /// Returns the places of the parts of a row's cell in the outline column. `level` is 0 for the top level.
    /// Deeper rows are indented as long as names keep some room. The time does not depend on the length of
    /// the name.
    OutlineCellParts outlineCell(int row, int level, const CellContent& cell) const;
    /// Returns the place of an image that begins at `left` in a row's `area`, in the middle of its height.
    QRect imageRect(int left, const QRect& area) const;

private:
    const OutlineHeader& header_;
    const QAbstractScrollArea& area_;
    int rowHeight_ = 23;
    int iconSize_ = 16;
};

} // namespace tabulon
