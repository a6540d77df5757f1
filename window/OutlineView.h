// What the outline controller needs of the view that shows its rows, and what it tells that view. The view
// draws rows, keeps the selection and reports what the user did; it decides nothing.
#pragma once

#include "model/TreeSort.h"
#include "window/CellContent.h"

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

/// A set of rows: ascending ranges that neither overlap nor touch.
using RowSet = std::vector<RowRange>;

/// Appends `row`, which is higher than every row in `rows`.
inline void addRow(RowSet& rows, std::size_t row) {
    if (!rows.empty() && rows.back().first + rows.back().count == row)
        ++rows.back().count;
    else
        rows.push_back({row, 1});
}

inline bool containsRow(const RowSet& rows, std::size_t row) {
    const auto after =
        std::upper_bound(rows.begin(), rows.end(), row,
                         [](std::size_t wanted, const RowRange& range) { return wanted < range.first; });
    return after != rows.begin() && row - std::prev(after)->first < std::prev(after)->count;
}

class OutlineView {
public:
    virtual ~OutlineView() = default;

    /// Changes of the rows come in pairs, one before and one after the controller's rows change. Rows keep
    /// their selection as they move; the selection of removed rows is gone, and all of it after a reload.
    virtual void willReloadData() = 0;
    virtual void didReloadData() = 0;
    virtual void willInsertRows(RowRange rows) = 0;
    virtual void didInsertRows() = 0;
    virtual void willRemoveRows(RowRange rows) = 0;
    virtual void didRemoveRows() = 0;
    /// The rows show something else now.
    virtual void reloadRows(RowRange rows) = 0;

    virtual RowSet selectedRows() const = 0;
    /// The row selected last; nothing when no row is selected.
    virtual std::optional<std::size_t> selectedRow() const = 0;
    virtual void selectRows(const RowSet& rows) = 0;
    virtual void selectAll() = 0;
    virtual void scrollRowToVisible(std::size_t row) = 0;

    /// Begins to edit the cell's text in place, all of it selected; when that ends the view tells the
    /// controller. The cell must be one that can be edited, and no other one may be edited yet.
    virtual void editCell(Column column, std::size_t row) = 0;
    /// Ends editing, if a cell is being edited, and takes over what was typed.
    virtual void endEditing() = 0;
    /// Whether a cell is being edited.
    virtual bool isEditing() const = 0;
    /// Whether what is typed goes to the rows or to a field of theirs, rather than elsewhere in the window.
    virtual bool hasKeyboard() const = 0;
    /// The column that the pointer is over; nothing when it is outside the cells, or the keyboard elsewhere.
    virtual std::optional<Column> columnUnderPointer() const = 0;

    /// Shows the tags column, which must not be shown yet, as the `index`th of the columns, or the last where
    /// there are fewer; its width is in points of 1/72 inch.
    virtual void addTagsColumn(std::size_t index, double width) = 0;
    virtual void removeTagsColumn() = 0;
    /// Where the tags column stands among the columns; nothing while it is not shown.
    virtual std::optional<std::size_t> tagsColumnIndex() const = 0;
    /// The column whose title says that the document was sorted by it, and which way; nothing for none.
    virtual void showSortIndicator(std::optional<Column> column, SortDirection direction) = 0;
    /// The font of all cells and the height of every row, in points of 1/72 inch.
    virtual void setTableFont(const OutlineFont& font, double rowHeight) = 0;
};

} // namespace tabulon
