#include "window/FindBar.h"

#include "base/Lines.h"
#include "window/ViewController.h"

#include <algorithm>
#include <limits>

namespace tabulon {
namespace {

constexpr std::string_view kRecentsKey = "RecentSearches";
constexpr std::size_t kPortion = 20'000; // nodes that are searched in a few milliseconds
constexpr double kEditingPause = 0.25;   // seconds

} // namespace

void FindBarController::showFindView() {
    if (!bar_->isFindBarShown())
        bar_->setFindBarShown(true);
    bar_->selectSearchText();
}

void FindBarController::hideFindView() {
    if (!bar_->isFindBarShown())
        return platform_.beeper.beep();
    search_.reset();
    bar_->setFindBarShown(false);
}

void FindBarController::doSearch(const std::string& text) {
    search_.reset();
    bar_->setMatchesLabel("");
    if (text.empty())
        return;
    outline_.beginFinding(text);
    goOn(kPortion);
}

void FindBarController::goOn(std::size_t nodes) {
    if (const std::optional<std::size_t> count = outline_.goOnFinding(nodes)) {
        search_.reset();
        bar_->setMatchesLabel(platform_.base.texts.format("%d matches", *count));
    } else {
        goOnAfter(0);
    }
}

// A match that is selected would end the editing of another cell.
void FindBarController::goOnAfter(double seconds) {
    search_ = platform_.timers.after(
        seconds, [this] { outline_.isEditing() ? goOnAfter(kEditingPause) : goOn(kPortion); });
}

void FindBarController::findNext() {
    if (search_)
        goOn(std::numeric_limits<std::size_t>::max());
    outline_.findNext();
}

void FindBarController::controlTextDidBeginEditing() {
    bar_->setMatchesLabel("");
}

// One line each: a search field has no line breaks.
std::vector<std::string> FindBarController::recentSearches() const {
    std::vector<std::string> recents;
    const std::string kept = platform_.state.stringForKey(kRecentsKey).value_or("");
    for (const std::string_view line : linesOf(kept))
        if (!line.empty() && recents.size() < kMostRecents)
            recents.emplace_back(line);
    return recents;
}

void FindBarController::noteRecentSearch(const std::string& text) {
    if (text.empty() || text.find('\n') != std::string::npos)
        return;
    std::vector<std::string> recents = recentSearches();
    std::erase(recents, text);
    recents.insert(recents.begin(), text);
    std::string kept;
    for (std::size_t i = 0; i < std::min(recents.size(), kMostRecents); ++i)
        kept += (i > 0 ? "\n" : "") + recents[i];
    platform_.state.setStringForKey(kRecentsKey, kept);
}

void FindBarController::clearRecentSearches() {
    platform_.state.removeKey(kRecentsKey);
}

} // namespace tabulon
