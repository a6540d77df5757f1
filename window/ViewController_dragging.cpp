// Drags out of the outline and drops into it.
#include "model/TreeWalk.h"
#include "window/BookmarkPasteboard.h"
#include "window/ViewController.h"

#include <algorithm>
#include <unordered_set>

namespace tabulon {

std::vector<PasteboardItem> ViewController::beginDraggingSession() {
    commitEditing();
    const std::vector<Bookmark*> selected = selectedItems(0, rows_.size());
    const std::vector<Ref<Bookmark>> nodes(selected.begin(), selected.end());
    return pasteboardItemsForBookmarks(nodes, shared_.records, NodeRecords::List::Dragged, copyFormat());
}

void ViewController::draggingSessionEnded(DragOperation operation) {
    shared_.records.clear(NodeRecords::List::Dragged);
    if (operation == DragOperation::Delete)
        dragOperation_ = DragOperation::Delete;
}

bool ViewController::isDragOfInterest(const std::vector<PasteboardItem>& items) {
    return std::ranges::any_of(items, [](const PasteboardItem& item) {
        return item.offers(kItemType) || item.offers(kStringType) || item.offers(kFileURLType) ||
               item.offers(kURLType);
    });
}

DropSpot ViewController::spotBefore(std::size_t row) const {
    Bookmark& item = rows_.at(row);
    Bookmark& folder = *item.getParent();
    return {.item = &folder == &getMaster() ? nullptr : &folder,
            .childIndex = folder.getChildren()->indexOf(item),
            .row = row,
            .level = levelForRow(row)};
}

// Into an expanded folder as its first child; else behind the row's item, or behind a folder that ends with
// it where the pointer stands further to the left.
DropSpot ViewController::spotBehind(std::size_t row, int level) const {
    Bookmark* item = &rows_.at(row);
    int itemLevel = levelForRow(row);
    if (isExpanded(*item))
        return {.item = item, .childIndex = 0, .row = row + 1, .level = itemLevel + 1};
    while (itemLevel > std::max(level, 0) && item->getParent()->getLast() == item) {
        item = item->getParent();
        --itemLevel;
    }
    Bookmark& folder = *item->getParent();
    return {.item = &folder == &getMaster() ? nullptr : &folder,
            .childIndex = folder.getChildren()->indexOf(*item) + 1,
            .row = row + 1,
            .level = itemLevel};
}

DropSpot ViewController::dropSpot(std::optional<std::size_t> row, double fraction, int level) const {
    if (!row)
        return {};
    // A bookmark takes no drop: its halves are what is before and behind it.
    const bool isFolder = rows_.at(*row).isFolder();
    if (fraction < (isFolder ? 0.25 : 0.5))
        return spotBefore(*row);
    if (fraction > 0.75 || !isFolder)
        return spotBehind(*row, level);
    return {.item = &rows_.at(*row), .row = row};
}

bool ViewController::dragIsLocalReorder(const DragInfo& drag) const {
    return drag.source == this &&
           std::ranges::any_of(drag.items, [](const PasteboardItem& item) { return item.offers(kItemType); });
}

DragOperation ViewController::validateDrop(const DragInfo& drag, Bookmark* item,
                                           std::optional<std::size_t> childIndex) {
    const Bookmark& target = item ? *item : getMaster();
    dragOperation_ = DragOperation::None;
    if (!target.isFolder() && !childIndex)
        return dragOperation_;
    if (dragIsLocalReorder(drag)) {
        std::unordered_set<const Bookmark*> around; // the target and the folders that it is in
        for (const Bookmark* node = &target; node; node = node->getParent())
            around.insert(node);
        for (const PasteboardItem& dragged : drag.items) {
            const std::string* record = dragged.get(kItemType);
            const Ref<Bookmark> node = record ? shared_.records.find(*record) : nullptr;
            if (node && node->isFolder() && around.contains(node.get()))
                return dragOperation_;
        }
    }
    const bool copies = drag.copies || drag.source != this;
    dragOperation_ = copies ? DragOperation::Copy : DragOperation::Move;
    return dragOperation_;
}

// Nothing where no drop is taken.
std::optional<ViewController::Place>
ViewController::placeOfDrop(Bookmark* item, std::optional<std::size_t> childIndex) const {
    Bookmark& target = item ? *item : getMaster();
    const auto childCount = [](const Bookmark& folder) {
        return folder.getChildren() ? folder.getChildren()->size() : 0;
    };
    if (target.isFolder() && childIndex)
        return Place{&target, std::min(*childIndex, childCount(target))};
    if (target.isFolder())
        return Place{&target, item ? 0 : childCount(target)};
    Bookmark* parent = target.getParent();
    if (!childIndex || !parent)
        return std::nullopt;
    return Place{parent, parent->getChildren()->indexOf(target) + 1};
}

// The node that goes into the tree for a dragged one, which leaves its place where it is moved. Null for one
// that has left the tree meanwhile, or would go into itself.
Ref<Bookmark> ViewController::droppedNode(const DragInfo& drag, const PasteboardItem& dragged, Place& place) {
    Ref<Bookmark> node = bookmarkOf(dragged);
    if (!node || dragOperation_ == DragOperation::Delete)
        return nullptr;
    if (drag.source != this || dragOperation_ != DragOperation::Move)
        return deepCopy(*node);
    const std::string* record = dragged.get(kItemType);
    if (!record || !shared_.records.find(*record))
        return node; // made of the item just now
    if (!isInTree(*node, getMaster()) || (node->hasChildren() && node->offSpring(*place.folder)))
        return nullptr;
    const Bookmark& parent = *node->getParent();
    if (&parent == place.folder && parent.getChildren()->indexOf(*node) < place.index)
        --place.index;
    removeItem(*node);
    return node;
}

bool ViewController::acceptDrop(const DragInfo& drag, Bookmark* item, std::optional<std::size_t> childIndex) {
    std::optional<Place> place = placeOfDrop(item, childIndex);
    if (!place || dragOperation_ == DragOperation::None)
        return false;
    commitEditing();
    const Ref<Bookmark> folder(place->folder);
    std::vector<Ref<Bookmark>> dropped;
    const bool many = drag.items.size() > kRowsHandledSingly;
    if (many)
        beginChangingManyRows();
    for (const PasteboardItem& dragged : drag.items) {
        Ref<Bookmark> node = droppedNode(drag, dragged, *place);
        if (!node)
            continue;
        insertChild(*place->folder, place->index++, node);
        makeDirty();
        dropped.push_back(std::move(node));
    }
    if (many)
        endChangingManyRows();
    selectDropped(dropped);
    return true;
}

void ViewController::selectDropped(const std::vector<Ref<Bookmark>>& dropped) {
    std::vector<Bookmark*> shown;
    for (const Ref<Bookmark>& node : dropped)
        if (rowForItem(*node))
            shown.push_back(node.get());
    if (!shown.empty())
        selectItems(shown);
}

} // namespace tabulon
