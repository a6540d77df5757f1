// The window's URL field: the address under the pointer or of the current row, else what the document holds.
#include "model/TreeWalk.h"
#include "window/ViewController.h"

namespace tabulon {

ViewController::Counts ViewController::countNodes() const {
    Counts counts;
    walkBelow(outline_.getMaster(), [&](const Bookmark& item) {
        if (item.isFolder())
            ++counts.folders;
        else if (!item.isSeparator())
            ++counts.bookmarks;
        return item.isFolder();
    });
    return counts;
}

std::string ViewController::countsText() {
    if (!counts_)
        counts_ = countNodes();
    const Localization& texts = platform_.base.texts;
    return texts.format("%d bookmarks", counts_->bookmarks) + " " + texts.text("in") + " " +
           texts.format("%d folders", counts_->folders);
}

void ViewController::pointerIsOver(std::optional<std::size_t> row) {
    row ? statusLine_.showAddress(outline_.itemAtRow(*row)) : statusLine_.showCounts();
}

void ViewController::pointerDidLeave() {
    statusLine_.fallBack();
}

void ViewController::selectionDidChange(SelectedBy cause) {
    autoEdit_.reset();
    if (cause == SelectedBy::User)
        scheduleAutoEdit();
    updateURL();
}

void ViewController::currentRowDidChange() {
    updateURL();
}

void ViewController::updateURL() {
    if (const auto row = outline_.view().selectedRow())
        statusLine_.showAddress(outline_.itemAtRow(*row));
}

} // namespace tabulon
