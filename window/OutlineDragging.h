// Drags out of the outline and drops into it.
#pragma once

#include "model/Bookmark.h"
#include "platform/Platform.h"
#include "window/DragInfo.h"
#include "window/NodeRecords.h"
#include "window/PasteboardItem.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tabulon {

class FieldEditing;
class ItemExchange;
class Outline;
struct ChildPlace;

class OutlineDragging {
public:
    /// What is handed in must live longer.
    OutlineDragging(Outline& outline, FieldEditing& fields, const ItemExchange& items,
                    const Platform& platform, NodeRecords& records);

    /// Takes over what is being typed and returns the items of the selected rows for a drag that begins in
    /// this outline.
    std::vector<PasteboardItem> beginDraggingSession();
    /// Begins the drag of these items and returns its content.
    MimeContent contentForDrag(const std::vector<PasteboardItem>& items) const;
    /// Returns the items in a drag of another program. `content` is what the toolkit has passed on of it;
    /// types that it changes are asked for again.
    std::vector<PasteboardItem> itemsInForeignDrag(MimeContent content) const;
    /// Returns whether an outline takes such a drag at all.
    static bool isDragOfInterest(const std::vector<PasteboardItem>& items);
    /// Returns where a drop at the pointer would go. The pointer is over `row` (`nullopt`: below the last
    /// one), at the height `fraction` of it (0 is its top, 1 its bottom), and as far to the right as rows of
    /// `level` begin. After the last child of a folder the level decides which folder takes the drop.
    DropSpot dropSpot(std::optional<std::size_t> row, double fraction, int level) const;
    /// Returns true when the drag began in this outline and carries live nodes.
    bool dragIsLocalReorder(const DragInfo& drag) const;
    /// Returns what a drop would do: on `item`, or on the root where it is null, and before its child number
    /// `childIndex`, or on the item itself where there is no index. None refuses the drop.
    DragOperation validateDrop(const DragInfo& drag, Bookmark* item, std::optional<std::size_t> childIndex);
    /// Does what the last `validateDrop` has returned. Returns false when nothing may be dropped there.
    bool acceptDrop(const DragInfo& drag, Bookmark* item, std::optional<std::size_t> childIndex);
    /// Called when a drag that began in this outline has ended.
    void draggingSessionEnded(DragOperation operation);
    DragOperation dragOperation() const { return dragOperation_; }

private:
    DropSpot spotBefore(std::size_t row) const;
    DropSpot spotBehind(std::size_t row, int level) const;
    std::optional<ChildPlace> placeOfDrop(Bookmark* item, std::optional<std::size_t> childIndex) const;
    Ref<Bookmark> droppedNode(const DragInfo& drag, const PasteboardItem& dragged, ChildPlace& place);
    void selectDropped(const std::vector<Ref<Bookmark>>& dropped);

    Outline& outline_;
    FieldEditing& fields_;
    const ItemExchange& items_;
    const Platform platform_;
    NodeRecords& records_;
    DragOperation dragOperation_ = DragOperation::None;
};

} // namespace tabulon
