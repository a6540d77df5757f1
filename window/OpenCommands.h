// The commands that open bookmarks, and the double click. How a bookmark is opened is in
// opening/BookmarkOpener.h.
#pragma once

#include "opening/BookmarkOpener.h"
#include "platform/Platform.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace tabulon {

class ActionTable;
class ExpandCommands;
class FieldEditing;
class Outline;
class WindowController;

/// The place of a double click. Lengths are in points of 1/72 inch, in the same coordinates.
struct ClickPlace {
    std::size_t row;
    /// Whether it is in the row's cell of the name column.
    bool isInNameCell = false;
    /// From the left.
    double x = 0;
    /// The right edge of the cell.
    double cellRight = 0;
};

/// The parts of the window that the commands use.
struct OpenParts {
    Outline& outline;
    ExpandCommands& expanding;
    FieldEditing& fields;
    WindowController& window;
};

/// Adds the actions "openBookmark:", "openInBrowser:", "openInTab:", "openInWindow:", "openWith:",
/// "openInHelper:" and "openInTabs:". The commands act on the items of `Outline::getSelectionArray`, except
/// `openInTabs`. They skip folders. More bookmarks than a folder may open without a question are opened after
/// one, too. The tree may be changed while a bookmark is opened: the bookmarks are held meanwhile.
class OpenCommands {
public:
    /// Requires: the arguments and the services of `platform` outlive this object.
    OpenCommands(const OpenParts& parts, const Platform& platform, ActionTable& actions);

    /// Opens one bookmark in the current tab, or several in new tabs.
    void openBookmark();
    /// Opens each bookmark in a new tab.
    void openInTab();
    /// Opens each bookmark in a new window.
    void openInWindow();
    /// Opens one bookmark in the current tab of a browser, or several in new tabs of it. `index` is the
    /// browser's position in the "Open With" menu; for another number nothing is opened. Logs "OpenWith : "
    /// and the number.
    void openWith(int index);
    /// Opens each bookmark with the desktop's application for the scheme of its address.
    void openInHelper();
    /// Opens the bookmarks in the selected folder as tabs. Does nothing unless exactly one row is selected
    /// and its item is a folder.
    void openInTabs();

    /// Expands or collapses a folder. At the right end of the name it shows the info panel; elsewhere it
    /// opens the bookmarks by `doubleClickCmd`. Cancels the automatic editing that the first click has
    /// scheduled.
    void doubleClick(const ClickPlace& place);
    /// Opens the bookmarks as the settings "OpenInHelper", "OpenInNewTab" and "OpenInNewWindow" say: the
    /// first one that is on, else as `openBookmark`.
    void doubleClickCmd();
    /// Called when Return is pressed: expands or collapses the item of the current row if it is a folder and
    /// the only selected item; otherwise opens the bookmarks by `doubleClickCmd`.
    void pressReturn(Bookmark& current);

private:
    using Bookmarks = std::vector<Ref<Bookmark>>;

    /// Returns the items to act on that are no folders, or an empty list if the user declines to open so
    /// many.
    Bookmarks bookmarksToOpen() const;
    /// Opens a single item with `openOne`, and each of several with `openSeveral`, without the folders.
    void openSingleOrEach(const std::function<void(Bookmark&)>& openOne,
                          const std::function<void(Bookmark&)>& openSeveral);
    void openEach(const std::function<void(Bookmark&)>& open);

    Outline& outline_;
    ExpandCommands& expanding_;
    FieldEditing& fields_;
    WindowController& window_;
    const Platform platform_;
    const BookmarkOpener opener_;
};

} // namespace tabulon
