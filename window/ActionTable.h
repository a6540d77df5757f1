// Operations by name: the code that runs when a menu item is chosen.
#pragma once

#include "window/Menu.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tabulon {

/// Observes the operations of a table.
class ActionObserver {
public:
    virtual ~ActionObserver() = default;

    /// Called before each action runs.
    virtual void willPerformAction() = 0;
};

/// The operations of one responder. Names are those of the operations, with the colon ("expandAll:").
class ActionTable {
public:
    using Perform = std::function<void(const MenuItem& sender)>;
    using Validate = std::function<bool(const MenuItem& item)>;

    /// Constructs an empty table. `observer` may be nullptr. Requires: it exists until the table is used for
    /// the last time.
    explicit ActionTable(ActionObserver* observer = nullptr) : observer_(observer) {}

    /// Adds the action, or replaces the one of that name. Without `validate` the action is always enabled.
    /// The functions are stored: what they refer to must exist until the table is used for the last time.
    void add(std::string_view action, Perform perform, Validate validate = nullptr);

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

    ActionObserver* observer_; // not owned
    std::map<std::string, Entry, std::less<>> entries_;
};

} // namespace tabulon
