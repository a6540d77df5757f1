#include "window/StatusLine.h"

#include "window/ShownAddress.h"
#include "window/ViewController.h"

#include <utility>

namespace tabulon {

void StatusLine::show(std::string text) {
    isStale_ = false;
    if (text == text_)
        return;
    text_ = std::move(text);
    window_->setURLFieldText(text_);
}

void StatusLine::showStatus(std::string text, std::string actionTitle, Action action) {
    refresh_.reset();
    spokenOf_ = nullptr;
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

void StatusLine::showAddress(Bookmark& item) {
    spokenOf_ = Ref<Bookmark>(&item);
    show(item.isFolder() ? std::string() : shownAddressLine(item.itemURL()).string());
}

void StatusLine::showCounts() {
    spokenOf_ = nullptr;
    show(outline_.countsText());
}

void StatusLine::fallBack() {
    if (!status_.empty()) {
        spokenOf_ = nullptr;
        return show(status_);
    }
    if (const auto row = window_->outline().selectedRow())
        return showAddress(outline_.outline().itemAtRow(*row));
    showCounts();
}

void StatusLine::treeDidChange() {
    if (status_.empty())
        return;
    forgetStatus();
    refreshSoon();
}

void StatusLine::documentDidSave() {
    if (endsWithSave_)
        treeDidChange();
}

void StatusLine::forgetStatus() {
    isStale_ = text_ == status_;
    status_.clear();
    endsWithSave_ = false;
    action_ = nullptr;
    actionTitle_.clear();
    window_->setURLFieldAction({}, {});
}

void StatusLine::rowsWillChange() {
    if (spokenOf_)
        refreshSoon();
}

void StatusLine::refreshSoon() {
    if (!refresh_)
        refresh_ = platform_.timers.after(0, [this] { refresh(); });
}

void StatusLine::refresh() {
    refresh_.reset();
    const bool isGone = spokenOf_ && !outline_.outline().rowForItem(*spokenOf_);
    if (isStale_ || (isGone && !status_.empty()))
        fallBack();
    else if (isGone)
        showCounts();
}

} // namespace tabulon
