// A menu as a plain tree of values. The application builds it, a view draws it and hands chosen items back;
// which code an action's name stands for is the affair of the responders (window/ActionTable.h).
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

struct Menu {
    std::string title = {};
    std::vector<MenuItem> items;
};

/// The keys that go with a key equivalent. On Linux Command is Ctrl, Option is Alt, Control is the Super key.
struct KeyModifiers {
    bool command = true;
    bool option = false;
    bool control = false;
    bool shift = false;

    friend bool operator==(const KeyModifiers&, const KeyModifiers&) = default;
};

/// What an item stands for: nothing, a path in the file system's encoding, a node, or an open document.
using RepresentedObject = std::variant<std::monostate, std::string, Ref<Bookmark>, Document*>;

/// One line of a menu. Texts are UTF-8 in the user's language, ready to be shown.
struct MenuItem {
    std::string title = {};
    /// The operation's name, such as "newDocument:"; empty for an item that does nothing itself.
    std::string action = {};
    /// One character (a capital letter means Shift as well) or the name of a key without one: "Left",
    /// "Right", "Up", "Down", "Delete", "F2"; empty for none.
    std::string keyEquivalent = {};
    KeyModifiers modifiers = {};
    int tag = 0;
    RepresentedObject representedObject = {};
    /// The name of an image; empty for none.
    std::string imageName = {};
    std::string toolTip = {};
    bool checked = false;
    /// The colour of the title where it is not the menu's own.
    std::optional<LabelColor> color = {};
    std::optional<Menu> submenu = {};
    bool separator = false;

    static MenuItem makeSeparator() {
        MenuItem item;
        item.separator = true;
        return item;
    }
};

} // namespace tabulon
