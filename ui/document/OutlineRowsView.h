// A view of rows of one height under a header: the scroll bars, the places of its items, the current row and
// the selection by mouse and keys. It does not know what the rows show.
#pragma once

#include "ui/document/OutlineGeometry.h"
#include "window/OutlineColumns.h"
#include "window/OutlineView.h"

#include <QAbstractItemView>

#include <cstddef>

namespace tabulon {

class OutlineHeader;

/// Shows a flat model, so that the time of every operation depends on the rows on the screen and not on all
/// rows. A derived class paints the rows. Without a model there are no rows.
class OutlineRowsView : public QAbstractItemView {
    Q_OBJECT

public:
    /// `parent` owns the view.
    OutlineRowsView(OutlineColumns columns, QWidget* parent);

    /// Sets the model of the rows and of the header, which is not owned; `nullptr` for none. Clears the
    /// selection.
    void showModel(QAbstractItemModel* model);

    /// Returns the header, with the widths and places of the columns. It exists as long as the view.
    OutlineHeader& header() const { return *header_; }
    /// Returns the places of rows and cells.
    const OutlineGeometry& geometry() const { return geometry_; }
    /// Sets the font of the rows, and the application's font in the header. Rows are higher than `rowHeight`,
    /// in pixels, where the font needs it.
    void setRowFont(const QFont& font, int rowHeight);

    /// Returns the number of rows, 0 without a model.
    int rowCount() const { return model() ? model()->rowCount() : 0; }
    /// Returns the index of the row's first cell. Requires: the view has a model.
    QModelIndex indexOfRow(int row) const { return model()->index(row, 0); }
    /// Returns the selected rows. Sorts the ranges of the selection; the time does not depend on the number
    /// of rows in them. Requires: the view has a model.
    RowSet selectedRowSet() const;
    /// Selects the row alone, makes it the current one and scrolls to it. Requires: the row exists.
    void goToRow(std::size_t row);

    // QAbstractItemView

    /// Returns the place of a cell in the viewport, visible or not; empty for an invalid index.
    QRect visualRect(const QModelIndex& index) const override;
    /// Scrolls vertically, as the hint says. Does nothing for an invalid index.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    /// Returns the cell at a point of the viewport, or an invalid index where there is none.
    QModelIndex indexAt(const QPoint& point) const override;

protected:
    /// Returns the first cell of the row that the current one moves to, or an invalid index without rows. A
    /// page is one row less than the viewport shows.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    /// Both offsets are in pixels, from the beginning of all columns and rows.
    int horizontalOffset() const override;
    int verticalOffset() const override;
    /// Makes the row the current one, from which the keys with Shift extend the selection. Does not change
    /// the selection.
    void makeCurrent(int row);
    bool isIndexHidden(const QModelIndex&) const override { return false; }
    /// Selects the rows that the rectangle of the viewport touches, as a single range.
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    /// Returns the visible part of the selected rows. Linear in the number of ranges.
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    /// Sets the ranges of the scroll bars, and the place and the widths of the header.
    void updateGeometries() override;
    /// Moves the painted rows by so many pixels, and the header with them.
    void scrollContentsBy(int dx, int dy) override;

private:
    /// Owned by this widget.
    OutlineHeader* header_;
    OutlineGeometry geometry_;
    /// True during `updateGeometries`, which would otherwise call itself.
    bool updatesGeometries_ = false;
};

} // namespace tabulon
