// What the cells of the outline show for a node.
#pragma once

#include "base/BaseServices.h"
#include "model/Bookmark.h"
#include "window/CellContent.h"

#include <cstddef>
#include <optional>

namespace tabulon {

class Outline;

/// Computes the content of cells from nodes and settings. It keeps no state of its own.
class OutlineCells {
public:
    /// Requires: the outline and the services outlive this object.
    OutlineCells(const Outline& outline, const BaseServices& services)
        : outline_(outline), services_(services) {}

    /// Returns what the cell shows. Texts of selected rows have no colour. A missing text is empty. Requires:
    /// row < numberOfRows().
    CellContent viewForTableColumn(Column column, std::size_t row, bool selected) const;
    /// Returns the tool tip of the whole cell, empty for none: the note of the item, in the Name column,
    /// where the setting "ShowBalloonNote" is on. Images in the cell may have their own tool tips
    /// (CellContent).
    Text toolTipForCell(Column column, std::size_t row) const;

private:
    /// Returns the content of a cell in the Name column.
    CellContent nameCell(const Bookmark& item, const std::optional<LabelColor>& color) const;

    const Outline& outline_;
    const BaseServices services_;
};

} // namespace tabulon
