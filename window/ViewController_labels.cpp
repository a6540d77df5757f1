// What commands act on, labels, and which commands can be chosen.
#include "window/ViewController.h"

#include <algorithm>

namespace tabulon {

void ViewController::labelBookmark(std::uint8_t label) {
    std::vector<Bookmark*> changed;
    for (Bookmark* item : outline_.getSelectionArray()) {
        if (item->isSeparator() || item->getLabel() == label)
            continue;
        item->setLabel(label);
        changed.push_back(item);
        outline_.makeDirty();
    }
    outline_.reloadItems(changed);
}

} // namespace tabulon
