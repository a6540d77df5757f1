// A menu as a plain tree of values. The application builds it, and a view draws it and reports the item that
// was chosen. Responders find the code of an action by its name (window/ActionTable.h).
#pragma once

#include "model/Bookmark.h"
#include "model/LinkType.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tabulon {

class Document;
struct MenuItem;

/// A menu. The title is UTF-8 in the user's language.
struct Menu {
    std::string title = {};
    std::vector<MenuItem> items;
};

/// The modifier keys of a key equivalent. On Linux Command is Ctrl, Option is Alt, and Control is the Super
/// key.
struct KeyModifiers {
    bool command = true;
    bool option = false;
    bool control = false;
    bool shift = false;

    friend bool operator==(const KeyModifiers&, const KeyModifiers&) = default;
};

/// What an item represents: no object, a path in the file system's encoding, a node, or an open document (not
/// owned).
using RepresentedObject = std::variant<std::monostate, std::string, Ref<Bookmark>, Document*>;

/// One line of a menu. Texts are UTF-8 in the user's language, ready to be shown.
struct MenuItem {
    std::string title = {};
    /// The operation's name, such as "newDocument:"; empty for an item without an action.
    std::string action = {};
    /// One character (a capital letter includes Shift) or the name of a key without a character: "Left",
    /// "Right", "Up", "Down", "Delete", "Return", "F2". Empty for an item without a key.
    std::string keyEquivalent = {};
    KeyModifiers modifiers = {};
    /// A number that the action interprets.
    int tag = 0;
    RepresentedObject representedObject = {};
    /// The name of an image of resources/icons, of an icon of the desktop's theme, or the path of an image;
    /// empty for no image.
    std::string imageName = {};
    std::string toolTip = {};
    /// Whether the item has a check mark.
    bool checked = false;
    /// The label colour that the item is shown with; `nullopt` for no colour.
    std::optional<LabelColor> color = {};
    std::optional<Menu> submenu = {};
    /// Whether the line is a separator; then all other members are ignored.
    bool separator = false;

    /// Returns a separator.
    static MenuItem makeSeparator() {
        MenuItem item;
        item.separator = true;
        return item;
    }
};

} // namespace tabulon
