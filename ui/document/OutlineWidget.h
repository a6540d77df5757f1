// The outline in a window: rows of one height over a flat model, so that the time of every operation depends
// on the rows on the screen and not on all rows. The code is split by concern: _painting, _input, _editing,
// _dragging.
#pragma once

#include "ui/document/OutlinePainter.h"
#include "ui/document/OutlineRowsView.h"
#include "window/CellContent.h"
#include "window/DragInfo.h"
#include "window/OutlineView.h"

#include <QAccessible>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPersistentModelIndex>

#include <optional>
#include <string_view>

namespace tabulon {

class OutlineModel;
class ViewController;

/// The view of the rows. It reports what the user does to the controller, and makes no decisions.
class OutlineWidget : public OutlineRowsView, public OutlineView {
    Q_OBJECT

public:
    /// `columnTitles` are those of Name, URL and Tags. Requires: the controller exists until `detach` is
    /// called.
    OutlineWidget(ViewController& controller, const QStringList& columnTitles, QWidget* parent);

    /// Detaches the view from the controller, and shows no rows after that.
    void detach();

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

    void keyboardSearch(const QString& search) override;

signals:
    /// Emitted when a context menu is to be opened at this place on the screen. The row under the pointer is
    /// the controller's clicked row until `contextMenuDidClose` is called. There is no clicked row if the
    /// menu was requested by a key.
    void contextMenuWanted(const QPoint& place);

protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
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
    enum class Depth { ItemAlone, WithChildren };

    /// Reports the event to screen readers, for the first of the items.
    void tellAccessibility(QAccessible::Event type, const QItemSelection& items);
    /// Connects the header's signals to the controller.
    void connectHeader();
    /// Computes the font, the height of the rows and the size of images from the settings.
    void applyFont();
    /// Returns the number of pixels in 1/72 inch of this screen.
    double pixelsPerPoint() const;
    /// Makes another row the current one, if it is one of these, before they are removed.
    void moveCursorFrom(int first, int last);
    /// Returns the row that becomes the current one then, or -1.
    int rowInPlaceOf(int first, int last) const;

    /// Returns the places of the parts of a row's Name cell.
    NameCellParts nameCell(int row, bool selected) const;
    /// Returns whether the row is selected.
    bool rowIsSelected(int row) const;
    /// Returns the place of a drop at this point of the viewport.
    DropSpot dropSpotAt(const QPoint& point) const;
    /// Marks the place of a drop, or removes the mark.
    void showDropSpot(std::optional<DropSpot> spot);
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
    const OutlinePainter painter_;
    OutlineFont font_;
    /// As the settings say, in points of 1/72 inch.
    double rowHeightInPoints_ = 0;
    int sortedSection_ = -1;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    /// The cell that was edited last. It is being edited while it has a field.
    QPersistentModelIndex edited_;
    int changesOfController_ = 0;              // changes of the rows or the selection that are in progress
    std::vector<PasteboardItem> draggedItems_; // of the drag over this outline
    /// The outline that the drag over this one began in, or `nullptr`.
    const Outline* dragSource_ = nullptr;
    std::optional<DropSpot> dropSpot_;
    QBasicTimer springTimer_;
    /// The beginning of a name that the user types to find a row.
    QString typed_;
    QElapsedTimer sinceTyped_;
};

} // namespace tabulon
