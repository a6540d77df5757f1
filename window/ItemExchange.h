// Items between the outline and the desktop: nodes as pasteboard items, pasteboard items in the desktop's
// types, and back. The pasteboard commands and drags use it; the rules are in BookmarkPasteboard.h and
// MimeItems.h.
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
    /// Requires: `shared` and the services of `platform` outlive this object.
    ItemExchange(const Platform& platform, SharedState& shared) : platform_(platform), shared_(shared) {}

    /// Clears `list`, adds the nodes to it, and returns an item with a record for each node, in their order.
    /// The texts of the items have the form of the setting "CopyFormat", or are HTML anchors while the Option
    /// key is held.
    std::vector<PasteboardItem> itemsOf(const std::vector<Ref<Bookmark>>& nodes,
                                        NodeRecords::List list) const;
    /// Returns the node that an item represents (`pasteboardItemToBookmark`), or `nullptr`. HTML alone is
    /// passed to the application, which collects its links into a new document.
    Ref<Bookmark> bookmarkOf(const PasteboardItem& item) const;

    /// Returns the items in the types of the desktop's programs (`mimeContent`).
    MimeContent mimeContentOf(const std::vector<PasteboardItem>& items) const;
    /// Returns the items in such content (`pasteboardItems`), empty if there are none. Reads link files that
    /// the content names.
    std::vector<PasteboardItem> itemsIn(const MimeContent& content) const;

private:
    const Platform platform_;
    SharedState& shared_;
};

} // namespace tabulon
