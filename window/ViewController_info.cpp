// The info panel's way into the outline: which item it shows, and what its changes do to the rows.
#include "window/GetInfoController.h"
#include "window/ViewController.h"

namespace tabulon {

void ViewController::getInfo() {
    const std::vector<Bookmark*> items = getSelectionArray();
    const std::optional<std::size_t> current = outline().selectedRow();
    if (items.empty())
        return noSelection();
    Bookmark& item = items.size() > 1 && current ? rows_.at(*current) : *items.front();
    if (info_ && info_->isShown()) {
        info_->editBookmark(item);
        if (!window_->findBar().hasKeyboard()) // else the user types on
            info_->bringToFront();
        return;
    }
    if (info_)
        info_->outlineIsGone();
    info_ = std::make_shared<GetInfoController>(*this, platform_);
    info_->editBookmark(item);
    window_->presentInfo(info_);
}

// Nodes have left the tree for good.
void ViewController::nodesDidLeave() {
    if (info_)
        info_->nodesDidLeave();
}

void ViewController::selectRowOf(const Bookmark& item) {
    if (const auto row = rowForItem(item)) {
        outline().selectRows({{*row, 1}});
        outline().scrollRowToVisible(*row);
    }
}

void ViewController::infoDidChange(const Bookmark& item, bool newURL) {
    if (const auto row = rowForItem(item))
        outline().reloadRows({*row, 1});
    if (newURL)
        updateURL();
    makeDirty();
}

} // namespace tabulon
