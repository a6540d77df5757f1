// What the cells of a document's outline show for its nodes.
#pragma once

#include "base/BaseServices.h"
#include "model/Bookmark.h"
#include "window/RowSource.h"

#include <cstddef>
#include <optional>

namespace tabulon {

class Outline;

/// Computes the content of cells from nodes and settings. It keeps no state of its own.
class OutlineCells : public RowSource {
public:
    /// Requires: the outline and the services outlive this object.
    OutlineCells(const Outline& outline, const BaseServices& services)
        : outline_(outline), services_(services) {}

    /// Returns Name, URL and, hideable, Tags.
    OutlineColumns columns() const override;
    std::size_t numberOfRows() const override;
    TreePlace treePlace(std::size_t row) const override;
    /// A missing text is empty.
    CellContent viewForTableColumn(Column column, std::size_t row, bool selected) const override;
    /// Returns the note of the item, in the Name column, if the setting "ShowBalloonNote" is on.
    Text toolTipForCell(Column column, std::size_t row) const override;

private:
    /// Returns the content of a cell in the Name column.
    CellContent nameCell(const Bookmark& item, const std::optional<LabelColor>& color) const;

    const Outline& outline_;
    const BaseServices services_;
};

} // namespace tabulon
