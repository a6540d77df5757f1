// What a view of rows shows: the columns, the number of rows, and the content of each cell. A document's
// outline is one source (OutlineCells); a list with other columns is another.
#pragma once

#include "window/CellContent.h"
#include "window/OutlineColumns.h"

#include <cstddef>

namespace tabulon {

/// The place of a row in its tree, and its triangle.
struct TreePlace {
    /// The depth of the row, 0 for the top level.
    int level = 0;
    /// Whether the row has a triangle.
    bool isFolder = false;
    /// Whether the row is a folder whose children are shown.
    bool isExpanded = false;
};

/// The source of the rows of a view. Requires: every row passed in is below `numberOfRows()`, and every
/// column is one of `columns()`.
class RowSource {
public:
    virtual ~RowSource() = default;

    /// Returns the columns. They never change.
    virtual OutlineColumns columns() const = 0;
    /// Returns the number of rows.
    virtual std::size_t numberOfRows() const = 0;
    /// Returns the place of a row: the top level, without a triangle, unless a source of trees overrides it.
    virtual TreePlace treePlace(std::size_t /*row*/) const { return {}; }
    /// Returns what a cell shows. Texts of selected rows have no colour. The parts that CellContent names for
    /// NameView are shown in the outline column only.
    virtual CellContent viewForTableColumn(Column column, std::size_t row, bool selected) const = 0;
    /// Returns the tool tip of the whole cell, empty for none. Images in the cell may have their own tool
    /// tips (CellContent).
    virtual Text toolTipForCell(Column column, std::size_t row) const = 0;
};

} // namespace tabulon
