// The find bar of a document window: the interface of its view, and the controller that the view calls.
#pragma once

#include "platform/Platform.h"
#include "window/Finding.h"

#include <string>
#include <vector>

namespace tabulon {

/// The view of the find bar. Texts are UTF-8.
class FindBar {
public:
    virtual ~FindBar() = default;

    /// Returns whether the bar is shown.
    virtual bool isFindBarShown() const = 0;
    /// Shows or hides the bar.
    virtual void setFindBarShown(bool shown) = 0;
    /// Moves the keyboard to the search field and selects all of its text.
    virtual void selectSearchText() = 0;
    /// Returns whether keys that are typed in the window reach the search field. The window need not be the
    /// active one.
    virtual bool hasKeyboard() const = 0;
    /// Shows `text` in the search field, without searching for it.
    virtual void setSearchText(const std::string& text) = 0;
    /// Shows the number of matches; empty for no number.
    virtual void setMatchesLabel(const std::string& text) = 0;
};

/// The controller of the find bar. It stores recent searches in the program's state, so that they outlast the
/// process.
class FindBarController : private FindObserver {
public:
    /// Requires: `finding` and the services of `platform` outlive this object.
    FindBarController(Finding& finding, const Platform& platform) : finding_(finding), platform_(platform) {
        finding_.addObserver(*this);
    }

    /// Sets the window's bar, which must exist until the last call. Requires: no other function was called
    /// before.
    void setFindBar(FindBar* bar) { bar_ = bar; }

    /// Shows the bar if it is hidden, moves the keyboard to its field and selects the text in it.
    void showFindView();
    /// Hides the bar and cancels a search that has not ended. Beeps if the bar is hidden.
    void hideFindView();
    /// Cancels a search that has not ended, clears the number of matches, and begins to search for `text`
    /// (`Finding::findText`). The number of matches is shown when the search ends. An empty text only cancels
    /// and clears.
    void doSearch(const std::string& text);
    /// Clears the number of matches. Called when the user begins to change the search text.
    void controlTextDidBeginEditing();

    // The menu of recent searches

    /// Returns the recent searches, at most `kMostRecents`, the newest first.
    std::vector<std::string> recentSearches() const;
    /// Makes `text` the newest recent search. Does nothing for an empty text and for one with a line feed.
    void noteRecentSearch(const std::string& text);
    /// Removes all recent searches.
    void clearRecentSearches();
    static constexpr std::size_t kMostRecents = 10;

private:
    void searchDidEnd(std::size_t count) override;

    Finding& finding_;
    const Platform platform_;
    FindBar* bar_ = nullptr;
};

} // namespace tabulon
