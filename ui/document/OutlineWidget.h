// The outline in a document window: the view of the rows of its controller. It adds to
// the view of a source the keys, drops and fields of a document, and passes the events of Qt to them.
#pragma once

#include "ui/document/OutlineDrops.h"
#include "ui/document/OutlineKeys.h"
#include "ui/document/OutlineSourceView.h"
#include "window/OpenCommands.h"
#include "window/OutlineView.h"

#include <QPersistentModelIndex>

#include <optional>

namespace tabulon {

class ViewController;

/// The view of the rows. It reports what the user does to the controller, and makes no decisions.
class OutlineWidget : public OutlineSourceView, public OutlineView {
    Q_OBJECT

public:
    /// `parent` owns the widget. Requires: the controller exists until `detach` is called.
    OutlineWidget(ViewController& controller, QWidget* parent);

    /// Detaches the view from the controller, and shows no rows after that.
    void detach() override;

    /// Returns the controller, or `nullptr` after `detach`.
    ViewController* controller() const { return controller_; }
    /// Returns the drag over the outline, for drops on other parts of the window.
    OutlineDrops& drops() { return drops_; }
    /// Expands a collapsed folder and collapses an expanded one. Does nothing for other rows. Requires: the
    /// row exists, and `detach` was not called.
    void toggleRow(std::size_t row) override { keys_.toggleRow(row); }

    /// Called when the context menu was closed. Commands act on the selected rows again.
    void contextMenuDidClose();

    // OutlineView

    /// Ends editing in place first, which takes over what was typed.
    void willReloadData() override;
    void didReloadData() override;
    void willInsertRows(RowRange rows) override;
    void didInsertRows() override;
    /// If one of the rows is the current one, makes a row beside them the current one: the row after them, or
    /// the row before them if they were the last or all rows of a folder.
    void willRemoveRows(RowRange rows) override;
    void didRemoveRows() override;
    /// Reports the first of the rows to screen readers.
    void reloadRows(RowRange rows) override;
    RowSet selectedRows() const override;
    std::optional<std::size_t> selectedRow() const override;
    void selectRows(const RowSet& rows) override;
    void selectAll() override;
    /// Does not scroll horizontally.
    void scrollRowToVisible(std::size_t row) override;
    /// Does nothing while a mouse button is held, because the user selects or drags.
    void editCell(Column column, std::size_t row) override;
    /// Includes a word that an input method is composing.
    void endEditing() override;
    /// Returns whether a field is shown over a cell.
    bool isEditing() const override;
    /// False while a menu is open.
    bool hasKeyboard() const override;
    std::optional<Column> columnUnderPointer() const override;
    /// Limits the width to 10,000 points.
    void addTagsColumn(std::size_t index, double width) override;
    /// The other columns take its width.
    void removeTagsColumn() override;
    std::optional<std::size_t> tagsColumnIndex() const override;
    void showSortIndicator(std::optional<Column> column, SortDirection direction) override;
    /// Limits the font to 500 points and the row to 1,000. The first row on the screen stays there.
    void setTableFont(const OutlineFont& font, double rowHeight) override;

    // QAbstractItemView

    /// Selects the next row whose name begins with what was typed. Does nothing after `detach`.
    void keyboardSearch(const QString& search) override;

signals:
    /// Emitted when a context menu is to be opened at this place on the screen. The row under the pointer is
    /// the controller's clicked row until `contextMenuDidClose` is called. There is no clicked row if the
    /// menu was requested by a key.
    void contextMenuWanted(const QPoint& place);

protected:
    /// Closes the field. If Tab has ended it, edits the URL after a name, or else the name.
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    /// Reports the selection to the controller.
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    /// Takes over a new font of the application or a new style.
    void changeEvent(QEvent* event) override;
    /// Paints also the mark of a drop's place.
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Keeps the selection for the right button. A press on a triangle expands or collapses its folder and
    /// selects nothing.
    void mousePressEvent(QMouseEvent* event) override;
    /// Toggles a folder. A double click on a triangle counts as two presses.
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    /// Reports the row under the pointer to the controller.
    void mouseMoveEvent(QMouseEvent* event) override;
    /// Ends editing in place and emits `contextMenuWanted`. Ignores the event if no slot is connected to
    /// that.
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent* event) override;
    /// Runs a drag of the selected rows, and returns when it has ended. The widget may be destroyed
    /// meanwhile.
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Expands or collapses the folder whose triangle the left button is pressed on, with Alt together with
    /// everything below it. Returns false and does nothing if there is no triangle.
    bool pressTriangle(const QMouseEvent& event);
    /// Returns the place of a double click on a row, at a point of the viewport.
    ClickPlace clickPlaceAt(int row, const QPointF& point) const;
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

    /// `nullptr` after `detach`. The members below refer to its parts and do not use them after that.
    ViewController* controller_;
    OutlineDrops drops_;
    OutlineKeys keys_;
    OutlineFont font_;
    /// As the settings say, in points of 1/72 inch.
    double rowHeightInPoints_ = 0;
    int sortedSection_ = -1;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    /// The cell that was edited last. It is being edited while it has a field.
    QPersistentModelIndex edited_;
    int changesOfController_ = 0; // changes of the rows or the selection that are in progress
};

} // namespace tabulon
