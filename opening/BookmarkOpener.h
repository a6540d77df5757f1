// Opening bookmarks: the browser of each, the place, and the last-opened date. Which bookmarks a command of a
// window opens is in window/OpenCommands.h.
#pragma once

#include "model/Bookmark.h"
#include "opening/BrowserDelivery.h"

#include <string>
#include <vector>

namespace tabulon {

/// Opens bookmarks. A link without an address is skipped without a message. A bookmark that is shown in a
/// browser gets the last-opened date; see Bookmark::opened. Alerts process events before they return, so the
/// document may be changed meanwhile. Requires: the caller holds the bookmarks until a function returns.
class BookmarkOpener {
public:
    /// The number of pages that a folder opens without a question.
    static constexpr std::size_t kMostPagesWithoutQuestion = 50;

    /// Requires: the services outlive this object.
    explicit BookmarkOpener(const OpeningServices& services) : services_(services), delivery_(services) {}

    /// Shows a web link in the current tab of its browser, which is its own or the desktop's. Other links are
    /// opened with the desktop's application for their scheme, and get no date.
    void open(Bookmark& bookmark) const;
    /// Like `open`, in a new window.
    void openInNewWindow(Bookmark& bookmark) const;
    /// Like `open`, in a new tab where the browser has an event for that. The date is set twice, which
    /// records two changes. A web link without an address brings its browser forward and gets the date once.
    void openInNewTab(Bookmark& bookmark) const;
    /// Shows a link of any type in the current tab of this browser, which is brought forward.
    void openWithBrowser(Bookmark& bookmark, const std::string& browser) const;
    /// Shows a link of any type in a new tab of this browser, which is not brought forward.
    void openWithBrowserInNewTab(Bookmark& bookmark, const std::string& browser) const;

    /// Opens the web links and queries among these bookmarks with the desktop's browser, all in one request.
    /// Their own browsers are ignored, and folders are not entered. Asks first if there are many. Does
    /// nothing if the desktop has no browser. Logs "could not open URLs" if that browser cannot be started.
    void openFolderContents(const std::vector<Bookmark*>& bookmarks) const;

    /// Opens the link's address with the desktop's application for its scheme, without a message if that
    /// fails. The date is not set.
    void openInHelper(const Bookmark& bookmark) const;

    /// Asks whether to open so many bookmarks if there are more than `kMostPagesWithoutQuestion`. Returns
    /// false if the user declines.
    bool confirmsPages(std::size_t count) const;

private:
    std::string browserOf(const Bookmark& bookmark) const;

    OpeningServices services_;
    BrowserDelivery delivery_;
};

} // namespace tabulon
