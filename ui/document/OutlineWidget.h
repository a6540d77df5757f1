// The outline in a window: rows of one height over a flat model, so that the time of every operation depends
// on the rows on the screen and not on all rows. The code is split by concern: _painting, _input, _editing,
// _dragging.
#pragma once

#include "window/CellContent.h"
#include "window/DragInfo.h"
#include "window/OutlineView.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QHash>
#include <QPersistentModelIndex>

#include <optional>
#include <string_view>

namespace tabulon {

class OutlineHeader;
class OutlineModel;
class ViewController;

/// The view of the rows. It reports what the user does to the controller, and makes no decisions.
class OutlineWidget : public QAbstractItemView, public OutlineView {
    Q_OBJECT

public:
    /// `columnTitles` are those of Name, URL and Tags. Requires: the controller exists until `detach` is
    /// called.
    OutlineWidget(ViewController& controller, const QStringList& columnTitles, QWidget* parent);

    /// Detaches the view from the controller, and shows no rows after that.
    void detach();

    /// Returns the header, with the widths and places of the columns.
    OutlineHeader& header() const { return *header_; }

    /// Returns the controller, or `nullptr` after `detach`.
    ViewController* controller() const { return controller_; }
    /// Expands a collapsed folder and collapses an expanded one. Does nothing for other rows.
    void toggleRow(std::size_t row);

    // Called by the field of a cell that is edited.

    /// Returns the text of the cell as it is stored.
    QString fieldText(const QModelIndex& index) const;
    /// Returns the place of the field in the viewport.
    QRect fieldRect(const QModelIndex& index) const;
    /// Reports to the controller that the field has ended with this text.
    void endField(const QModelIndex& index, const QString& text);

    /// Selects the row alone, makes it the current one and scrolls to it.
    void goToRow(std::size_t row);

    // Drops on other parts of the window, which are passed to the outline.

    /// Reads the items of a drag that enters, and returns whether they can be dropped on an outline.
    bool beginDragOver(const QDropEvent& event);
    /// Accepts or ignores the event, as the controller decides about a drop at `spot`, and returns whether it
    /// was accepted.
    bool offerDrop(QDropEvent* event, const DropSpot& spot);
    /// Performs a drop at `spot`, if the controller accepts it, and ends the drag over the outline.
    void performDrop(QDropEvent* event, const DropSpot& spot);
    /// Ends the drag over the outline: releases its items and removes the mark of the drop's place.
    void endDragOver();
    /// How long a drag rests on a collapsed folder before that is expanded, in milliseconds.
    static constexpr int kSpringDelay = 700;

    /// Called when the context menu was closed. Commands act on the selected rows again.
    void contextMenuDidClose();

    // OutlineView

    void willReloadData() override;
    void didReloadData() override;
    void willInsertRows(RowRange rows) override;
    void didInsertRows() override;
    void willRemoveRows(RowRange rows) override;
    void didRemoveRows() override;
    void reloadRows(RowRange rows) override;
    RowSet selectedRows() const override;
    std::optional<std::size_t> selectedRow() const override;
    void selectRows(const RowSet& rows) override;
    void selectAll() override;
    void scrollRowToVisible(std::size_t row) override;
    void editCell(Column column, std::size_t row) override;
    void endEditing() override;
    bool isEditing() const override;
    bool hasKeyboard() const override;
    std::optional<Column> columnUnderPointer() const override;
    void addTagsColumn(std::size_t index, double width) override;
    void removeTagsColumn() override;
    std::optional<std::size_t> tagsColumnIndex() const override;
    void showSortIndicator(std::optional<Column> column, SortDirection direction) override;
    void setTableFont(const OutlineFont& font, double rowHeight) override;

    // QAbstractItemView

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;
    void keyboardSearch(const QString& search) override;

signals:
    /// Emitted when a context menu is to be opened at this place on the screen. The row under the pointer is
    /// the controller's clicked row until `contextMenuDidClose` is called. There is no clicked row if the
    /// menu was requested by a key.
    void contextMenuWanted(const QPoint& place);

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex& index) const override;
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    // The places of the parts of a Name cell, in the viewport.
    struct NameCellLayout {
        QRect triangle;
        QRect status;
        QRect icon;
        QRect text;
        QRect indicator;
        QRect labelMark;
    };
    enum class Depth { ItemAlone, WithChildren };

    /// Returns the row at this height of the viewport, in pixels. It may be beyond the last one.
    int rowAtY(int y) const;
    /// Returns the place of a cell in the viewport.
    QRect cellRect(int row, int column) const;
    /// Returns the place of a row in the viewport, as wide as all columns and the viewport.
    QRect rowRect(int row) const;
    /// Sets the model of the view and the header; `nullptr` for none.
    void showModel(QAbstractItemModel* model);
    /// Reports the event to screen readers, for the first of the items.
    void tellAccessibility(QAccessible::Event type, const QItemSelection& items);
    /// Connects the header's signals to the controller.
    void connectHeader();
    /// Computes the font, the height of the rows and the size of images from the settings.
    void applyFont();
    /// Returns the number of pixels in 1/72 inch of this screen.
    double pixelsPerPoint() const;
    /// Returns the index of the row's first cell.
    QModelIndex indexOfRow(int row) const;
    /// Makes another row the current one, if it is one of these, before they are removed.
    void moveCursorFrom(int first, int last);
    /// Returns the row that becomes the current one then, or -1.
    int rowInPlaceOf(int first, int last) const;

    /// Returns the places of the parts of a Name cell. Parts that `cell` does not have are empty.
    NameCellLayout layOutNameCell(int row, const CellContent& cell) const;
    /// Returns the part of a cell that is inside its margins.
    QRect textArea(int row, Column column) const;
    void paintRow(QPainter& painter, int row) const;
    void paintNameCell(QPainter& painter, int row, bool selected) const;
    void paintTextCell(QPainter& painter, int row, Column column, bool selected) const;
    void paintSeparator(QPainter& painter, const QRect& area, int left, bool selected) const;
    void paintTriangle(QPainter& painter, const QRect& rect, bool expanded, const QColor& color) const;
    void paintText(QPainter& painter, const QRect& rect, const ColoredText& text, const QColor& color) const;
    /// Paints the background of a text in a label's colour, if it needs one.
    void paintGround(QPainter& painter, const QRect& rect, const QString& text,
                     const LabelColor& color) const;
    void paintImage(QPainter& painter, const QRect& rect, std::string_view name) const;
    /// Paints the image with all of its parts in this colour.
    void paintTintedImage(QPainter& painter, const QRect& rect, std::string_view name,
                          const QColor& color) const;
    /// Returns the image of this name, which is cached. Requires: the name is static.
    const QIcon& icon(std::string_view name) const;
    /// Returns the colour of a text in the Name column.
    QColor textColor(const ColoredText& text, bool selected) const;
    /// Returns the colour of a text in the other columns.
    QColor secondaryTextColor(const ColoredText& text, bool selected) const;
    /// Returns whether the row is selected.
    bool rowIsSelected(int row) const;
    /// Returns the colours of the active window while the rows have the keyboard, else those of an inactive
    /// one.
    QPalette::ColorGroup colorGroup() const;

    /// Returns the picture of the selected rows that follows the pointer during a drag.
    QPixmap pictureOfSelection() const;
    /// Returns the place of a drop at this point of the viewport.
    DropSpot dropSpotAt(const QPoint& point) const;
    /// Marks the place of a drop, or removes the mark.
    void showDropSpot(std::optional<DropSpot> spot);
    void paintDropSpot(QPainter& painter) const;
    /// Returns the row of the folder whose triangle is at this point of the viewport.
    std::optional<std::size_t> hitTriangle(const QPoint& point) const;
    /// Returns the tool tip at this point of the viewport, or an empty text.
    QString toolTipAt(const QPoint& point) const;
    /// Expands or collapses the item of a row, alone or with everything below it.
    void setExpanded(std::size_t row, bool expanded, Depth depth);
    /// Handles a key that expands, collapses or moves in the tree. Returns whether it is one.
    bool handleTreeKey(int key);
    /// Selects a row if none is selected. Returns whether it did.
    bool showCursor(int key);

    ViewController* controller_;
    OutlineModel* rows_;
    OutlineHeader* header_;
    OutlineFont font_;
    /// As the settings say, in points of 1/72 inch.
    double rowHeightInPoints_ = 0;
    /// In pixels.
    int rowHeight_ = 23;
    int sortedSection_ = -1;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    /// In pixels.
    int iconSize_ = 16;
    /// The cell that was edited last. It is being edited while it has a field.
    QPersistentModelIndex edited_;
    int changesOfController_ = 0; // changes of the rows or the selection that are in progress
    bool updatesGeometries_ = false;
    std::vector<PasteboardItem> draggedItems_; // of the drag over this outline
    /// The outline that the drag over this one began in, or `nullptr`.
    const Outline* dragSource_ = nullptr;
    std::optional<DropSpot> dropSpot_;
    QBasicTimer springTimer_;
    /// The beginning of a name that the user types to find a row.
    QString typed_;
    QElapsedTimer sinceTyped_;
    mutable QHash<QByteArrayView, QIcon> icons_; // by names, which are static
};

} // namespace tabulon
