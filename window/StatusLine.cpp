#include "window/StatusLine.h"

#include "model/TreeWalk.h"
#include "window/DocumentWindow.h"
#include "window/Outline.h"
#include "window/ShownAddress.h"

#include <utility>

namespace tabulon {

StatusLine::StatusLine(Outline& outline, const Platform& platform) : outline_(outline), platform_(platform) {
    outline_.addRowObserver(*this);
    outline_.addSelectionObserver(*this);
    outline_.addPointerObserver(*this);
}

void StatusLine::show(std::string text) {
    isStale_ = false;
    if (text == text_)
        return;
    text_ = std::move(text);
    window_->setURLFieldText(text_);
}

void StatusLine::showStatus(std::string text, std::string actionTitle, Action action) {
    refresh_.reset();
    addressItem_ = nullptr;
    status_ = std::move(text);
    action_ = std::move(action);
    actionTitle_ = action_ ? std::move(actionTitle) : std::string();
    endsWithSave_ = false;
    window_->setURLFieldAction(actionTitle_, status_);
    show(status_);
}

void StatusLine::replaceStatus(std::string text) {
    showStatus(std::move(text), std::move(actionTitle_), std::move(action_));
}

void StatusLine::showStatusUntilSaved(std::string text) {
    showStatus(std::move(text));
    endsWithSave_ = true;
}

void StatusLine::performAction() {
    if (const Action action = std::exchange(action_, nullptr)) {
        forgetStatus();
        refreshSoon();
        action();
    }
}

// Shows an empty line for a folder. When the item has lost its row, the line shows the status, else the
// counts.
void StatusLine::showAddress(Bookmark& item) {
    addressItem_ = Ref<Bookmark>(&item);
    show(item.isFolder() ? std::string() : shownAddressLine(item.itemURL()).string());
}

void StatusLine::showCounts() {
    addressItem_ = nullptr;
    show(countsText());
}

StatusLine::Counts StatusLine::countNodes() const {
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

std::string StatusLine::countsText() {
    if (!counts_)
        counts_ = countNodes();
    const Localization& texts = platform_.base.texts;
    return texts.format("%d bookmarks", counts_->bookmarks) + " " + texts.text("in") + " " +
           texts.format("%d folders", counts_->folders);
}

// Shows the status, else the current row's address, else the counts.
void StatusLine::pointerDidLeave() {
    if (!status_.empty()) {
        addressItem_ = nullptr;
        return show(status_);
    }
    if (const auto row = outline_.view().selectedRow())
        return showAddress(outline_.itemAtRow(*row));
    showCounts();
}

void StatusLine::pointerIsOver(std::optional<std::size_t> row) {
    row ? showAddress(outline_.itemAtRow(*row)) : showCounts();
}

void StatusLine::selectionDidChange(SelectedBy) {
    currentRowDidChange();
}

void StatusLine::currentRowDidChange() {
    if (const auto row = outline_.view().selectedRow())
        showAddress(outline_.itemAtRow(*row));
}

void StatusLine::masterDidChange() {
    counts_.reset();
    if (!window_)
        return;
    statusIsOutOfDate();
    showCounts();
}

void StatusLine::treeDidChange() {
    counts_.reset();
    statusIsOutOfDate();
}

// The line is updated by a timer, once for many changes.
void StatusLine::statusIsOutOfDate() {
    if (status_.empty())
        return;
    forgetStatus();
    refreshSoon();
}

void StatusLine::documentDidSave() {
    if (endsWithSave_)
        statusIsOutOfDate();
}

void StatusLine::forgetStatus() {
    isStale_ = text_ == status_;
    status_.clear();
    endsWithSave_ = false;
    action_ = nullptr;
    actionTitle_.clear();
    window_->setURLFieldAction({}, {});
}

// The row whose address is shown may be among them.
void StatusLine::rowsWillChange() {
    if (addressItem_)
        refreshSoon();
}

void StatusLine::refreshSoon() {
    if (!refresh_)
        refresh_ = platform_.timers.after(0, [this] { refresh(); });
}

void StatusLine::refresh() {
    refresh_.reset();
    const bool isGone = addressItem_ && !outline_.rowForItem(*addressItem_);
    if (isStale_ || (isGone && !status_.empty()))
        pointerDidLeave();
    else if (isGone)
        showCounts();
}

} // namespace tabulon
