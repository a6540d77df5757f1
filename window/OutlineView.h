// The view of an outline's rows, as the outline and the classes over it call it. The view draws rows, keeps
// the selection and reports what the user does. It makes no decisions.
#pragma once

#include "model/TreeSort.h"
#include "window/CellContent.h"
#include "window/OutlineColumns.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <vector>

namespace tabulon {

/// Rows from `first` to `first + count - 1`; `count` is not 0.
struct RowRange {
    std::size_t first;
    std::size_t count;

    friend bool operator==(const RowRange&, const RowRange&) = default;
};

/// A set of rows: ascending ranges that neither overlap nor touch each other.
using RowSet = std::vector<RowRange>;

/// Appends `row`. Requires: it is higher than every row in `rows`.
inline void addRow(RowSet& rows, std::size_t row) {
    if (!rows.empty() && rows.back().first + rows.back().count == row)
        ++rows.back().count;
    else
        rows.push_back({row, 1});
}

/// Returns whether `rows` contains `row`. The time is logarithmic in the number of ranges.
inline bool containsRow(const RowSet& rows, std::size_t row) {
    const auto after =
        std::upper_bound(rows.begin(), rows.end(), row,
                         [](std::size_t wanted, const RowRange& range) { return wanted < range.first; });
    return after != rows.begin() && row - std::prev(after)->first < std::prev(after)->count;
}

/// The view of the rows of one outline. Requires: every row passed in is below the outline's number of rows.
class OutlineView {
public:
    virtual ~OutlineView() = default;

    // Changes of the rows are reported in pairs, one call before and one after the outline's rows change.
    // The other rows keep their selection as they move. The selection of removed rows is cleared, and all of
    // it by a reload.

    /// Called before all rows are replaced.
    virtual void willReloadData() = 0;
    /// Called after all rows were replaced.
    virtual void didReloadData() = 0;
    /// Called before rows are inserted; these are their numbers after that.
    virtual void willInsertRows(RowRange rows) = 0;
    /// Called after the rows of `willInsertRows` were inserted.
    virtual void didInsertRows() = 0;
    /// Called before these rows are removed.
    virtual void willRemoveRows(RowRange rows) = 0;
    /// Called after the rows of `willRemoveRows` were removed.
    virtual void didRemoveRows() = 0;
    /// Redraws these rows, whose content has changed.
    virtual void reloadRows(RowRange rows) = 0;

    /// Returns the selected rows.
    virtual RowSet selectedRows() const = 0;
    /// Returns the current row: of the selected rows the one that was selected last; `nullopt` if no row is
    /// selected.
    virtual std::optional<std::size_t> selectedRow() const = 0;
    /// Selects these rows and no others. The selection observers are called with `SelectedBy::Program` if the
    /// selection changes.
    virtual void selectRows(const RowSet& rows) = 0;
    /// Selects all rows.
    virtual void selectAll() = 0;
    /// Scrolls as little as needed to make the row visible.
    virtual void scrollRowToVisible(std::size_t row) = 0;

    /// Begins to edit the cell's text in place, with all of it selected. When that ends, the view calls
    /// `FieldEditing`. It may refuse to begin while a mouse button is held. Requires: the cell can be edited,
    /// and no cell is being edited.
    virtual void editCell(Column column, std::size_t row) = 0;
    /// Ends editing in place, if a cell is being edited, and takes over what was typed.
    virtual void endEditing() = 0;
    /// Returns whether a cell is being edited.
    virtual bool isEditing() const = 0;
    /// Returns whether keys that are typed in the window reach the rows, or a field in them.
    virtual bool hasKeyboard() const = 0;
    /// Returns the column of the current row's cell that the pointer is over; `nullopt` if it is over no such
    /// cell, or `hasKeyboard()` is false.
    virtual std::optional<Column> columnUnderPointer() const = 0;

    /// Shows the tags column as the column number `index`, or as the last one if there are fewer. `width` is
    /// in points of 1/72 inch. Requires: the column is not shown.
    virtual void addTagsColumn(std::size_t index, double width) = 0;
    /// Hides the tags column.
    virtual void removeTagsColumn() = 0;
    /// Returns the place of the tags column among the columns, from the left; `nullopt` while it is not
    /// shown.
    virtual std::optional<std::size_t> tagsColumnIndex() const = 0;
    /// Shows in the column's title that the document was sorted by it, and in which direction; `nullopt`
    /// removes the mark.
    virtual void showSortIndicator(std::optional<Column> column, SortDirection direction) = 0;
    /// Sets the font of all cells and the height of every row. `rowHeight` is in points of 1/72 inch; rows
    /// may be higher where the font needs it.
    virtual void setTableFont(const OutlineFont& font, double rowHeight) = 0;
};

} // namespace tabulon
