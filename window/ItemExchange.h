// Items between the outline and the desktop: nodes as pasteboard items, pasteboard items in the desktop's
// types, and back. Pasteboard and drags use it alike; the rules are in BookmarkPasteboard.h and MimeItems.h.
#pragma once

#include "model/Bookmark.h"
#include "platform/Platform.h"
#include "window/NodeRecords.h"
#include "window/PasteboardItem.h"

#include <vector>

namespace tabulon {

struct SharedState;

class ItemExchange {
public:
    /// Both must live longer.
    ItemExchange(const Platform& platform, SharedState& shared) : platform_(platform), shared_(shared) {}

    /// Returns an item for each node, with records in `list`, which is cleared first. The setting
    /// "CopyFormat" and the Option key choose the form of their texts.
    std::vector<PasteboardItem> itemsOf(const std::vector<Ref<Bookmark>>& nodes,
                                        NodeRecords::List list) const;
    /// Returns the node that an item stands for (`pasteboardItemToBookmark`), or null.
    Ref<Bookmark> bookmarkOf(const PasteboardItem& item) const;

    /// Items in the types of the desktop's programs (MimeItems.h), and back.
    MimeContent mimeContentOf(const std::vector<PasteboardItem>& items) const;
    std::vector<PasteboardItem> itemsIn(const MimeContent& content) const;

private:
    const Platform platform_;
    SharedState& shared_;
};

} // namespace tabulon
