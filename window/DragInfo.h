// A drag over an outline, in the values that OutlineDragging uses.
#pragma once

#include "window/PasteboardItem.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tabulon {

class Bookmark;
class Outline;

enum class DragOperation {
    None,
    Copy,
    Move,
    Delete, ///< the drag ended in the trash
};

/// The place that a drop would be inserted at, and how the view marks it.
struct DropSpot {
    /// The target; `nullptr` for the root.
    Bookmark* item = nullptr;
    /// The index of the target's child before which the drop is inserted; `nullopt` for the target itself.
    std::optional<std::size_t> childIndex = {};
    /// The row of the target, or the row before which a line marks the place (the number of rows: after the
    /// last one); `nullopt` for the area without rows.
    std::optional<std::size_t> row = {};
    /// The depth of the line; 0 for the top level.
    int level = 0;

    friend bool operator==(const DropSpot&, const DropSpot&) = default;
};

/// A drag while it is over an outline.
struct DragInfo {
    /// The outline that the drag began in; `nullptr` if it began in no outline of this program.
    const Outline* source;
    /// Whether the key is held that turns a move into a copy.
    bool copies;
    /// The dragged items. They exist until the drag ends.
    const std::vector<PasteboardItem>& items;
};

} // namespace tabulon
