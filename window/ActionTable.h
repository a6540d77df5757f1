// Operations by name: how a menu item finds the code that it stands for.
#pragma once

#include "window/Menu.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace tabulon {

/// The operations of one responder. Names are those of the operations, colon included ("expandAll:").
class ActionTable {
public:
    using Perform = std::function<void(const MenuItem& sender)>;
    using Validate = std::function<bool(const MenuItem& item)>;

    /// Without `validate` the action is always enabled.
    void add(std::string_view action, Perform perform, Validate validate = nullptr);

    /// Called before each action runs.
    void setWillPerform(std::function<void()> willPerform) { willPerform_ = std::move(willPerform); }

    bool contains(std::string_view action) const { return entries_.contains(action); }

    /// True when the table has the item's action and it is enabled now.
    bool validateMenuItem(const MenuItem& item) const;

    /// Runs the item's action, which the table must contain.
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
