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
    /// Requires: the arguments and the services of `platform` outlive this object.
    OutlineDragging(Outline& outline, FieldEditing& fields, const ItemExchange& items,
                    const Platform& platform, NodeRecords& records);

    /// Ends editing in place and returns the items of the selected rows, for a drag that begins in this
    /// outline. Their records are valid until `draggingSessionEnded`.
    std::vector<PasteboardItem> beginDraggingSession();
    /// Returns the items in the types of other programs, and reports to the pasteboard that a drag of this
    /// content begins.
    MimeContent contentForDrag(const std::vector<PasteboardItem>& items) const;
    /// Returns the items in a drag of another program. `content` is what the toolkit has received of it. If
    /// it has links, the types that the toolkit alters are requested again from the pasteboard.
    std::vector<PasteboardItem> itemsInForeignDrag(MimeContent content) const;
    /// Returns whether an item has a value that can be dropped: a record, a text, the URL of a file, or a
    /// URL.
    static bool isDragOfInterest(const std::vector<PasteboardItem>& items);
    /// Returns where a drop at the pointer would be inserted. The pointer is over `row` (`nullopt`: below the
    /// last one), at the height `fraction` of it (0 is its top, 1 its bottom), and as far to the right as
    /// rows of `level` begin. After the last child of a folder, the level decides which folder receives the
    /// drop.
    DropSpot dropSpot(std::optional<std::size_t> row, double fraction, int level) const;
    /// Returns whether the drag began in this outline and an item has a record.
    bool dragIsLocalReorder(const DragInfo& drag) const;
    /// Returns what a drop on `item`, or on the root where it is `nullptr`, would do: before its child
    /// `childIndex`, or on the item itself where that is `nullopt`. Returns None if the item itself cannot
    /// contain the drop, and if a folder would be moved or copied into itself; otherwise Move within this
    /// outline, and Copy with the copy key or from elsewhere. The result is stored for `acceptDrop`.
    DragOperation validateDrop(const DragInfo& drag, Bookmark* item, std::optional<std::size_t> childIndex);
    /// Performs what the last `validateDrop` has returned, as one change for each item, and selects the
    /// dropped items that have rows. Returns false and changes nothing if that was None or the place does not
    /// exist. Items that were removed from the tree meanwhile are skipped.
    bool acceptDrop(const DragInfo& drag, Bookmark* item, std::optional<std::size_t> childIndex);
    /// Called when a drag that began in this outline has ended. The records of the dragged nodes become
    /// invalid. The nodes stay in the tree, even if they were dropped on the trash.
    void draggingSessionEnded(DragOperation operation);
    /// Returns the result of the last `validateDrop`, or Delete after a drag to the trash.
    DragOperation dragOperation() const { return dragOperation_; }

private:
    /// Returns the place before a row.
    DropSpot spotBefore(std::size_t row) const;
    /// Returns the place after a row, at this level if possible.
    DropSpot spotBehind(std::size_t row, int level) const;
    /// Returns the place in the tree that a drop is inserted at; `nullopt` if there is none.
    std::optional<ChildPlace> placeOfDrop(Bookmark* item, std::optional<std::size_t> childIndex) const;
    /// Returns the node to insert for a dragged item, or `nullptr` to skip it. Adjusts `place` if the node is
    /// moved from before it.
    Ref<Bookmark> droppedNode(const DragInfo& drag, const PasteboardItem& dragged, ChildPlace& place);
    /// Selects those of the nodes that have rows. Returns false and does nothing if none has one.
    bool selectDropped(const std::vector<Ref<Bookmark>>& dropped);

    Outline& outline_;
    FieldEditing& fields_;
    const ItemExchange& items_;
    const Platform platform_;
    NodeRecords& records_;
    DragOperation dragOperation_ = DragOperation::None;
};

} // namespace tabulon
