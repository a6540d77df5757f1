#include "window/OutlineDragging.h"

#include "model/TreeWalk.h"
#include "window/FieldEditing.h"
#include "window/ItemExchange.h"
#include "window/MimeItems.h"
#include "window/Outline.h"

#include <algorithm>
#include <unordered_set>

namespace tabulon {

OutlineDragging::OutlineDragging(Outline& outline, FieldEditing& fields, const ItemExchange& items,
                                 const Platform& platform, NodeRecords& records)
    : outline_(outline), fields_(fields), items_(items), platform_(platform), records_(records) {}

std::vector<PasteboardItem> OutlineDragging::beginDraggingSession() {
    fields_.commitEditing();
    const std::vector<Bookmark*> selected = outline_.selectedItems();
    const std::vector<Ref<Bookmark>> nodes(selected.begin(), selected.end());
    return items_.itemsOf(nodes, NodeRecords::List::Dragged);
}

void OutlineDragging::draggingSessionEnded(DragOperation operation) {
    records_.clear(NodeRecords::List::Dragged);
    if (operation == DragOperation::Delete)
        dragOperation_ = DragOperation::Delete;
}

bool OutlineDragging::isDragOfInterest(const std::vector<PasteboardItem>& items) {
    return std::ranges::any_of(items, [](const PasteboardItem& item) {
        return item.offers(kItemType) || item.offers(kStringType) || item.offers(kFileURLType) ||
               item.offers(kURLType);
    });
}

DropSpot OutlineDragging::spotBefore(std::size_t row) const {
    Bookmark& item = outline_.itemAtRow(row);
    Bookmark& folder = *item.getParent();
    return {.item = &folder == &outline_.getMaster() ? nullptr : &folder,
            .childIndex = folder.getChildren()->indexOf(item),
            .row = row,
            .level = outline_.levelForRow(row)};
}

// Returns the place of the first child for an expanded folder. For any other item returns the place after it,
// or after a folder that ends with it if the pointer is further to the left.
DropSpot OutlineDragging::spotBehind(std::size_t row, int level) const {
    Bookmark* item = &outline_.itemAtRow(row);
    int itemLevel = outline_.levelForRow(row);
    if (isExpanded(*item))
        return {.item = item, .childIndex = 0, .row = row + 1, .level = itemLevel + 1};
    while (itemLevel > std::max(level, 0) && item->getParent()->getLast() == item) {
        item = item->getParent();
        --itemLevel;
    }
    Bookmark& folder = *item->getParent();
    return {.item = &folder == &outline_.getMaster() ? nullptr : &folder,
            .childIndex = folder.getChildren()->indexOf(*item) + 1,
            .row = row + 1,
            .level = itemLevel};
}

DropSpot OutlineDragging::dropSpot(std::optional<std::size_t> row, double fraction, int level) const {
    if (!row)
        return {};
    // A drop is never made on a bookmark: its upper half is before it, its lower half after it.
    const bool isFolder = outline_.itemAtRow(*row).isFolder();
    if (fraction < (isFolder ? 0.25 : 0.5))
        return spotBefore(*row);
    if (fraction > 0.75 || !isFolder)
        return spotBehind(*row, level);
    return {.item = &outline_.itemAtRow(*row), .row = row};
}

bool OutlineDragging::dragIsLocalReorder(const DragInfo& drag) const {
    return drag.source == &outline_ &&
           std::ranges::any_of(drag.items, [](const PasteboardItem& item) { return item.offers(kItemType); });
}

DragOperation OutlineDragging::validateDrop(const DragInfo& drag, Bookmark* item,
                                            std::optional<std::size_t> childIndex) {
    const Bookmark& target = item ? *item : outline_.getMaster();
    dragOperation_ = DragOperation::None;
    if (!target.isFolder() && !childIndex)
        return dragOperation_;
    if (dragIsLocalReorder(drag)) {
        std::unordered_set<const Bookmark*> around; // the target and the folders that it is in
        for (const Bookmark* node = &target; node; node = node->getParent())
            around.insert(node);
        for (const PasteboardItem& dragged : drag.items) {
            const std::string* record = dragged.get(kItemType);
            const Ref<Bookmark> node = record ? records_.find(*record) : nullptr;
            if (node && node->isFolder() && around.contains(node.get()))
                return dragOperation_;
        }
    }
    const bool copies = drag.copies || drag.source != &outline_;
    dragOperation_ = copies ? DragOperation::Copy : DragOperation::Move;
    return dragOperation_;
}

// Returns `nullopt` if there is no such place.
std::optional<ChildPlace> OutlineDragging::placeOfDrop(Bookmark* item,
                                                       std::optional<std::size_t> childIndex) const {
    Bookmark& target = item ? *item : outline_.getMaster();
    const auto childCount = [](const Bookmark& folder) {
        return folder.getChildren() ? folder.getChildren()->size() : 0;
    };
    if (target.isFolder() && childIndex)
        return ChildPlace{&target, std::min(*childIndex, childCount(target))};
    if (target.isFolder())
        return ChildPlace{&target, item ? 0 : childCount(target)};
    Bookmark* parent = target.getParent();
    if (!childIndex || !parent)
        return std::nullopt;
    return ChildPlace{parent, parent->getChildren()->indexOf(target) + 1};
}

// Returns the node to insert for a dragged item; a node that is moved has been removed from its place.
// Returns `nullptr` for a node that is no longer in the tree, or would be moved into itself.
Ref<Bookmark> OutlineDragging::droppedNode(const DragInfo& drag, const PasteboardItem& dragged,
                                           ChildPlace& place) {
    Ref<Bookmark> node = items_.bookmarkOf(dragged);
    if (!node || dragOperation_ == DragOperation::Delete)
        return nullptr;
    if (drag.source != &outline_ || dragOperation_ != DragOperation::Move)
        return deepCopy(*node);
    const std::string* record = dragged.get(kItemType);
    if (!record || !records_.find(*record))
        return node; // just made of the item
    if (!isInTree(*node, outline_.getMaster()) || (node->hasChildren() && node->offSpring(*place.folder)))
        return nullptr;
    const Bookmark& parent = *node->getParent();
    if (&parent == place.folder && parent.getChildren()->indexOf(*node) < place.index)
        --place.index;
    outline_.removeItem(*node);
    return node;
}

bool OutlineDragging::acceptDrop(const DragInfo& drag, Bookmark* item,
                                 std::optional<std::size_t> childIndex) {
    std::optional<ChildPlace> place = placeOfDrop(item, childIndex);
    if (!place || dragOperation_ == DragOperation::None)
        return false;
    fields_.commitEditing();
    const Ref<Bookmark> folder(place->folder);
    const std::vector<Bookmark*> selected = outline_.selectedItems();
    std::vector<Ref<Bookmark>> dropped;
    {
        const Outline::ManyRows rows(outline_, drag.items.size());
        for (const PasteboardItem& dragged : drag.items) {
            Ref<Bookmark> node = droppedNode(drag, dragged, *place);
            if (!node)
                continue;
            outline_.insertChild(*place->folder, place->index++, node);
            outline_.makeDirty();
            dropped.push_back(std::move(node));
        }
    }
    if (!selectDropped(dropped))
        outline_.selectItems(selected);
    return true;
}

bool OutlineDragging::selectDropped(const std::vector<Ref<Bookmark>>& dropped) {
    std::vector<Bookmark*> shown;
    for (const Ref<Bookmark>& node : dropped)
        if (outline_.rowForItem(*node))
            shown.push_back(node.get());
    if (!shown.empty())
        outline_.selectItems(shown);
    return !shown.empty();
}

MimeContent OutlineDragging::contentForDrag(const std::vector<PasteboardItem>& items) const {
    MimeContent content = items_.mimeContentOf(items);
    platform_.pasteboard.dragBegins(content);
    return content;
}

std::vector<PasteboardItem> OutlineDragging::itemsInForeignDrag(MimeContent content) const {
    // Requesting the types again takes a while, and the other program may not respond.
    if (!content.get("text/x-moz-url") && !content.get("text/uri-list"))
        return items_.itemsIn(content);
    const MimeContent unchanged = platform_.pasteboard.draggedContent(kReadMimeTypes);
    for (const auto& [type, bytes] : unchanged.forms())
        content.set(type, bytes);
    return items_.itemsIn(content);
}

} // namespace tabulon
