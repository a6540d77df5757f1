// The window's URL field: the address under the pointer or of the current row, else what the document holds.
#include "model/TreeWalk.h"
#include "window/ViewController.h"

namespace tabulon {
namespace {

std::string urlToShow(const Bookmark& item) {
    return item.isFolder() ? std::string() : item.itemURL().string();
}

} // namespace

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
}

void ViewController::mouseMoved(std::optional<std::size_t> row) {
    if (!row)
        setURLFieldText(countsText());
    else if (row != hoveredRow_)
        setURLFieldText(urlToShow(rows_.at(*row)));
    hoveredRow_ = row;
}

void ViewController::mouseExited() {
    hoveredRow_.reset();
    if (outline().selectedRow())
        updateURL();
    else
        setURLFieldText(countsText());
}

void ViewController::selectionDidChange() {
    if (!window_) // a view reports an empty selection while it is being made
        return;
    scheduleAutoEdit();
    updateURL();
}

void ViewController::updateURL() {
    if (const auto row = outline().selectedRow())
        setURLFieldText(urlToShow(rows_.at(*row)));
}

void ViewController::setURLFieldText(std::string text) {
    if (text == urlFieldText_)
        return;
    urlFieldText_ = std::move(text);
    window_->setURLFieldText(urlFieldText_);
}

} // namespace tabulon
