// Operations by name: the code that runs when a menu item is chosen.
#pragma once

#include "window/Menu.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace tabulon {

/// The operations of one responder. Names are those of the operations, with the colon ("expandAll:").
class ActionTable {
public:
    using Perform = std::function<void(const MenuItem& sender)>;
    using Validate = std::function<bool(const MenuItem& item)>;

    /// Adds the action, or replaces the one of that name. Without `validate` the action is always enabled.
    /// The functions are stored: what they refer to must exist until the table is used for the last time.
    void add(std::string_view action, Perform perform, Validate validate = nullptr);

    /// Sets the function that is called before each action runs. Replaces the one that was set before.
    void setWillPerform(std::function<void()> willPerform) { willPerform_ = std::move(willPerform); }

    /// Returns whether the table has an action of that name.
    bool contains(std::string_view action) const { return entries_.contains(action); }

    /// Returns whether the table has the item's action and the action is enabled.
    bool validateMenuItem(const MenuItem& item) const;

    /// Runs the item's action, whether it is enabled or not. The action may destroy this table. Requires:
    /// contains(sender.action).
    void perform(const MenuItem& sender) const;

private:
    struct Entry {
        Perform perform;
        Validate validate;
    };

    std::map<std::string, Entry, std::less<>> entries_;
    std::function<void()> willPerform_;
};

} // namespace tabulon
