// A view of the rows of any source: a document's outline, or a list with other columns. It paints the cells,
// shows their tool tips and reports the selection to screen readers.
#pragma once

#include "ui/document/OutlinePainter.h"
#include "ui/document/OutlinePointer.h"
#include "ui/document/OutlineRowsView.h"

#include <QAccessible>

namespace tabulon {

class OutlineModel;
class RowSource;

/// Shows the columns and the cells of a source, in which the user selects rows. Derived classes add commands.
class OutlineSourceView : public OutlineRowsView {
    Q_OBJECT

public:
    /// `parent` owns the view. Requires: the source exists until `detach` is called.
    OutlineSourceView(const RowSource& source, QWidget* parent);

    /// Detaches the view from the source, and shows no rows after that.
    virtual void detach() { showModel(nullptr); }

    /// Returns the source. Requires: `detach` was not called.
    const RowSource& source() const { return source_; }
    /// Returns the model of the rows, to which their changes are reported.
    OutlineModel& rowModel() { return *rowModel_; }
    /// Called when a screen reader requests to expand or collapse a folder. Does nothing here. Requires: the
    /// row exists, and `detach` was not called.
    virtual void toggleRow(std::size_t /*row*/) {}
    /// Reports an event of the outline column's cell in this row to screen readers.
    void reportToScreenReader(QAccessibleEvent& event, int row);

protected:
    /// Returns what is under the pointer. Requires: `detach` was not called.
    const OutlinePointer& pointer() const { return pointer_; }
    const OutlinePainter& painter() const { return painter_; }
    /// Returns whether the row is selected.
    bool rowIsSelected(int row) const;

    /// Reports the selection to screen readers.
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    /// Reports the current row to screen readers.
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    /// Paints the rows that the event concerns. Paints none after `detach`.
    void paintEvent(QPaintEvent* event) override;
    /// Shows the tool tip when it is requested.
    bool viewportEvent(QEvent* event) override;

private:
    /// Reports the event to screen readers, for the first row of the items.
    void reportFirstRow(QAccessible::Event type, const QItemSelection& items);

    const RowSource& source_;
    /// Owned by this widget.
    OutlineModel* rowModel_;
    const OutlinePainter painter_;
    const OutlinePointer pointer_;
};

} // namespace tabulon
