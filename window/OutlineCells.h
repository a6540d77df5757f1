// What the cells of the outline show for a node.
#pragma once

#include "base/BaseServices.h"
#include "model/Bookmark.h"
#include "window/CellContent.h"

#include <cstddef>
#include <optional>

namespace tabulon {

class Outline;

class OutlineCells {
public:
    /// Both must live longer.
    OutlineCells(const Outline& outline, const BaseServices& services)
        : outline_(outline), services_(services) {}

    /// Returns what the cell shows. Selected rows show their texts without the label's colour.
    CellContent viewForTableColumn(Column column, std::size_t row, bool selected) const;
    /// Returns the tool tip of the cell as a whole, empty for none. Images in it may have their own
    /// (CellContent).
    Text toolTipForCell(Column column, std::size_t row) const;

private:
    CellContent nameCell(const Bookmark& item, const std::optional<LabelColor>& color) const;

    const Outline& outline_;
    const BaseServices services_;
};

} // namespace tabulon
