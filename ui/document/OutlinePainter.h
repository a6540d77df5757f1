// Painting of the outline: rows with their selection, triangles, images and texts, the mark of a drop's
// place, and the picture of dragged rows.
#pragma once

#include "window/CellContent.h"
#include "window/DragInfo.h"
#include "window/OutlineView.h"

#include <QHash>
#include <QIcon>
#include <QPalette>
#include <QPixmap>

#include <string_view>

class QAbstractScrollArea;
class QPainter;

namespace tabulon {

class OutlineGeometry;
class OutlineHeader;
class RowSource;

/// How a row is painted, besides its content.
struct RowLook {
    bool selected = false;
    /// Whether the row has a frame, because it is the current one and not selected.
    bool framed = false;
    /// The colours: Active while the rows have the keyboard in an active window, else Inactive.
    QPalette::ColorGroup colors = QPalette::Inactive;
};

/// Paints in the coordinates of the viewport, with the palette, the font and the pixel ratio of an
/// area. Images are cached by name. It changes no row and decides nothing.
class OutlinePainter {
public:
    /// What is painted, and where.
    struct Parts {
        /// Has the palette, the font and the pixel ratio.
        const QAbstractScrollArea& area;
        /// Has the columns that are shown.
        const OutlineHeader& header;
        /// Has the places.
        const OutlineGeometry& geometry;
        /// Has what the cells show.
        const RowSource& source;
    };

    /// Requires: the parts outlive this object.
    explicit OutlinePainter(const Parts& parts) : parts_(parts) {}

    /// Paints a row in all columns that are shown. The time does not depend on the lengths of the texts.
    /// Requires: the source has the row.
    void paintRow(QPainter& painter, int row, const RowLook& look) const;
    /// Paints the mark of a drop's place: a frame around its row or all rows, or a line between two rows.
    void paintDropSpot(QPainter& painter, const DropSpot& spot) const;
    /// Returns the picture that follows the pointer during a drag: the texts of the first eight rows at most
    /// in the outline column, one below the other, each with its icon. Requires: `rows` is not empty.
    QPixmap pictureOfRows(const RowSet& rows) const;

private:
    /// Paints the triangle, the images and the text of a cell in the outline column, or the line of a
    /// separator.
    void paintOutlineCell(QPainter& painter, int row, const RowLook& look) const;
    /// Paints the text of a cell in another column.
    void paintTextCell(QPainter& painter, int row, Column column, const RowLook& look) const;
    /// Paints the line of a separator from `left` to the end of `area`.
    void paintSeparator(QPainter& painter, const QRect& area, int left, const QColor& color) const;
    /// Paints the triangle of a folder in the middle of `rect`, pointing down if `expanded` is true.
    void paintTriangle(QPainter& painter, const QRect& rect, bool expanded, const QColor& color) const;
    /// Paints a text in one line, with an ellipsis where it does not fit.
    void paintText(QPainter& painter, const QRect& rect, const ColoredText& text, const QColor& color) const;
    /// Paints the background of a text in a label's colour, if it needs one.
    void paintGround(QPainter& painter, const QRect& rect, const QString& text,
                     const LabelColor& color) const;
    /// Paints the image of this name. Does nothing for an empty name or place.
    void paintImage(QPainter& painter, const QRect& rect, std::string_view name) const;
    /// Paints the image with all of its parts in this colour. Does nothing for an empty name.
    void paintTintedImage(QPainter& painter, const QRect& rect, std::string_view name,
                          const QColor& color) const;
    /// Paints a row of the picture of a drag.
    void paintDraggedRow(QPainter& painter, std::size_t row, const QRect& area) const;
    /// Returns the image of this name, which is cached. Requires: the name is static.
    const QIcon& icon(std::string_view name) const;
    /// Returns a colour of the area's palette.
    QColor color(QPalette::ColorRole role) const;
    /// Returns the colour of a text in the outline column: that of its label, or that of a selection if the
    /// row is selected.
    QColor textColor(const ColoredText& text, const RowLook& look) const;
    /// Returns the colour of a text in the other columns, which is fainter unless the text has a label's
    /// colour or the row is selected.
    QColor secondaryTextColor(const ColoredText& text, const RowLook& look) const;

    const Parts parts_;
    mutable QHash<QByteArrayView, QIcon> icons_; // by names, which are static
};

} // namespace tabulon
