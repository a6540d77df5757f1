// A drag over an outline, as OutlineDragging sees it.
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
    Delete, ///< the drag has ended in the trash
};

/// Where a drop would go, and what shows that.
struct DropSpot {
    /// The target; null for the root.
    Bookmark* item = nullptr;
    /// Before which of its children; nothing for the target itself.
    std::optional<std::size_t> childIndex = {};
    /// The row that is the target, or before which a line shows where the drop goes (the number of rows:
    /// behind the last one); nothing for the ground.
    std::optional<std::size_t> row = {};
    /// How deep the line stands; 0 for the top level.
    int level = 0;

    friend bool operator==(const DropSpot&, const DropSpot&) = default;
};

struct DragInfo {
    /// The outline that the drag began in; null when that was none of this program.
    const Outline* source;
    /// Whether the key is held that makes a copy of a move.
    bool copies;
    /// What is dragged, as long as the drag lasts.
    const std::vector<PasteboardItem>& items;
};

} // namespace tabulon
