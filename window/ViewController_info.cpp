// The info panel's way into the outline: which item it shows, and what its changes do to the rows.
#include "window/GetInfoController.h"
#include "window/ViewController.h"

namespace tabulon {

void ViewController::getInfo() {
    const std::vector<Bookmark*> items = outline_.getSelectionArray();
    const std::optional<std::size_t> current = outline_.view().selectedRow();
    if (items.empty())
        return noSelection();
    Bookmark& item = items.size() > 1 && current ? outline_.itemAtRow(*current) : *items.front();
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

void ViewController::infoDidChange(const Bookmark& item, bool newURL) {
    if (newURL)
        updateURL();
    outline_.itemDidChange(item);
}

} // namespace tabulon
