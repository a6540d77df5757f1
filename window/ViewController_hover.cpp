// The window's URL field: the address under the pointer or of the current row, else what the document holds.
#include "model/TreeWalk.h"
#include "window/ViewController.h"

namespace tabulon {

ViewController::Counts ViewController::countNodes() const {
    Counts counts;
    walkBelow(getMaster(), [&](const Bookmark& item) {
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

// Another row may come to stand there.
void ViewController::forgetRowsUnderPointer() {
    hoveredRow_.reset();
    clickedRow_.reset();
    statusLine_.rowsWillChange();
}

void ViewController::mouseMoved(std::optional<std::size_t> row) {
    if (!row)
        statusLine_.showCounts();
    else if (row != hoveredRow_)
        statusLine_.showAddress(rows_.at(*row));
    hoveredRow_ = row;
}

void ViewController::mouseExited() {
    hoveredRow_.reset();
    statusLine_.fallBack();
}

void ViewController::selectionDidChange(SelectedBy cause) {
    if (!window_) // a view reports an empty selection while it is being made
        return;
    autoEdit_.reset();
    if (cause == SelectedBy::User)
        scheduleAutoEdit();
    updateURL();
}

void ViewController::updateURL() {
    if (const auto row = outline().selectedRow())
        statusLine_.showAddress(rows_.at(*row));
}

} // namespace tabulon
