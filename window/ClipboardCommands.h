// Copy, cut and paste, and making bookmarks of text.
#pragma once

#include "model/Bookmark.h"
#include "platform/Platform.h"
#include "window/PasteboardItem.h"

#include <string_view>
#include <vector>

namespace tabulon {

class ActionTable;
class EditingCommands;
class ItemExchange;
class Outline;

/// Adds the actions "cut:", "copy:" and "paste:".
class ClipboardCommands {
public:
    /// Requires: the arguments and the services of `platform` outlive this object.
    ClipboardCommands(Outline& outline, EditingCommands& editing, const ItemExchange& items,
                      const Platform& platform, ActionTable& actions);

    /// Copies the items that a command acts on (`Outline::getSelectionArray`) to the pasteboard.
    void copyEditMenu();
    /// Does the same as `copyEditMenu`.
    void copyBookmarks();
    /// Copies the items with everything below them to the pasteboard, and keeps these copies alive for
    /// pasting. If `items` is empty the pasteboard is not changed, but nodes that were copied before can no
    /// longer be pasted as nodes.
    void copyBookmarksArray(const std::vector<Bookmark*>& items);
    /// Copies the items that a command acts on and deletes the selected rows. These are not the same items
    /// while a clicked row outside the selection is set.
    void cut();
    /// Inserts a deep copy of what the pasteboard contains, as `EditingCommands::addNewItems` does. A single
    /// item that is a text with a line feed or a tab is split into lines, each of which is read as
    /// `splitBookmark` reads it. Does nothing if the pasteboard contains nothing that can be read.
    void pasteEditMenu();
    /// Inserts the bookmark that `string` (UTF-8) describes and returns it: "name TAB URL", where the URL
    /// ends at the next tab, or a URL alone, which is named "Untitled". Makes the document dirty. Returns
    /// `nullptr` and inserts nothing if the URL is empty.
    Ref<Bookmark> splitBookmark(std::string_view string);

    // Services: other programs that receive a text and may return one. Only desktops with a menu of such
    // programs call these functions.

    /// Returns whether a program can receive `sendType`: true for the text type (PasteboardItem.h).
    /// `returnType` is ignored.
    static bool validRequestorForSendTypeReturnType(std::string_view sendType, std::string_view returnType);
    /// Replaces all values of `pasteboard` by the current row's URL as text, and returns true. Returns false
    /// and leaves `pasteboard` as it is if the text type is not in `types`. Returns false and empties it if
    /// no row is selected or the row has no URL.
    bool writeSelectionToPasteboardTypes(PasteboardItem& pasteboard,
                                         const std::vector<std::string_view>& types) const;
    /// Returns true. The document is not changed, whatever the program returns.
    static bool readSelectionFromPasteboard(const PasteboardItem& pasteboard);

private:
    /// Returns the bookmark that `string` describes, or `nullptr` if the URL is empty.
    Ref<Bookmark> bookmarkOfText(std::string_view string) const;
    /// Inserts a bookmark for each line of `text` that describes one.
    void splitBookmarks(std::string_view text);

    Outline& outline_;
    EditingCommands& editing_;
    const ItemExchange& items_;
    const Platform platform_;
};

} // namespace tabulon
