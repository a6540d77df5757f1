// Copy, cut and paste, and the text that a bookmark is made of.
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
    /// What is handed in must live longer.
    ClipboardCommands(Outline& outline, EditingCommands& editing, const ItemExchange& items,
                      const Platform& platform, ActionTable& actions);

    /// Copies the items that a command acts on. Without any the pasteboard is not changed.
    void copyEditMenu();
    void copyBookmarks();
    void copyBookmarksArray(const std::vector<Bookmark*>& items);
    /// Copies what a command acts on, and deletes the selected rows: with a clicked row outside the selection
    /// these are not the same.
    void cut();
    /// Inserts what the pasteboard holds, one item after the other as `EditingCommands::addNewData` does. A
    /// text alone of several lines, or with a tab, is split into bookmarks.
    void pasteEditMenu();
    /// Inserts the bookmark that "name TAB URL", or a URL alone, means. Returns null and inserts nothing
    /// where the URL is empty.
    Ref<Bookmark> splitBookmark(std::string_view string);

    // Services: other programs that are handed a text and may hand one back. Only desktops with a menu of
    // such programs call these.

    /// Returns whether such a program can be handed `sendType`: the text type alone (PasteboardItem.h),
    /// whatever it returns.
    static bool validRequestorForSendTypeReturnType(std::string_view sendType, std::string_view returnType);
    /// Makes `pasteboard` an item with the current row's URL as its only text. Returns false and empties it
    /// when no row is selected or it has no URL; returns false and leaves it alone when no text is among the
    /// types wanted.
    bool writeSelectionToPasteboardTypes(PasteboardItem& pasteboard,
                                         const std::vector<std::string_view>& types) const;
    /// Returns true. What is handed back never changes the document.
    static bool readSelectionFromPasteboard(const PasteboardItem& pasteboard);

private:
    Ref<Bookmark> bookmarkOfText(std::string_view string) const;
    void splitBookmarks(std::string_view text);

    Outline& outline_;
    EditingCommands& editing_;
    const ItemExchange& items_;
    const Platform platform_;
};

} // namespace tabulon
