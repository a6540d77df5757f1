// The find bar of a document window: what the controller needs of the view, and the controller that the view
// reports to.
#pragma once

#include "platform/Platform.h"
#include "window/Finding.h"

#include <string>
#include <vector>

namespace tabulon {

/// Texts are UTF-8.
class FindBar {
public:
    virtual ~FindBar() = default;

    virtual bool isFindBarShown() const = 0;
    virtual void setFindBarShown(bool shown) = 0;
    /// The keyboard goes to the search field, all of its text selected.
    virtual void selectSearchText() = 0;
    /// Whether what is typed in the window goes into the search field. The window need not be in front.
    virtual bool hasKeyboard() const = 0;
    virtual void setSearchText(const std::string& text) = 0;
    /// Empty for none.
    virtual void setMatchesLabel(const std::string& text) = 0;
};

/// Recent searches are kept from run to run.
class FindBarController : private FindObserver {
public:
    /// What is handed in must live longer.
    FindBarController(Finding& finding, const Platform& platform) : finding_(finding), platform_(platform) {
        finding_.addObserver(*this);
    }

    /// The window's bar; before anything else is called.
    void setFindBar(FindBar* bar) { bar_ = bar; }

    /// Brings the bar up, if it is not there, and selects what is in its field.
    void showFindView();
    /// Ends a search that still goes on. Beeps where it is not shown.
    void hideFindView();
    /// The search field's action: goes to the first match and tells how many there are. The empty text clears
    /// that. In a large document it returns before, and goes on while the main loop is idle: the user may
    /// type on meanwhile. While a cell is edited the search waits.
    void doSearch(const std::string& text);
    /// The user begins to type.
    void controlTextDidBeginEditing();

    // The menu of recent searches

    /// The newest first, at most `kMostRecents`.
    std::vector<std::string> recentSearches() const;
    void noteRecentSearch(const std::string& text);
    void clearRecentSearches();
    static constexpr std::size_t kMostRecents = 10;

private:
    void searchDidEnd(std::size_t count) override;

    Finding& finding_;
    const Platform platform_;
    FindBar* bar_ = nullptr;
};

} // namespace tabulon
