#include "window/FindBar.h"

#include "base/Lines.h"

#include <algorithm>

namespace tabulon {
namespace {

constexpr std::string_view kRecentsKey = "RecentSearches";

} // namespace

void FindBarController::showFindView() {
    if (!bar_->isFindBarShown())
        bar_->setFindBarShown(true);
    bar_->selectSearchText();
}

void FindBarController::hideFindView() {
    if (!bar_->isFindBarShown())
        return platform_.beeper.beep();
    finding_.cancelSearch();
    bar_->setFindBarShown(false);
}

void FindBarController::doSearch(const std::string& text) {
    finding_.cancelSearch();
    bar_->setMatchesLabel("");
    if (!text.empty())
        finding_.findText(text);
}

void FindBarController::searchDidEnd(std::size_t count) {
    bar_->setMatchesLabel(platform_.base.texts.format("%d matches", count));
}

void FindBarController::controlTextDidBeginEditing() {
    bar_->setMatchesLabel("");
}

// Stored as lines, because a search field has no line breaks.
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
