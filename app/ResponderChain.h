// The search for the code of a menu item's action.
#pragma once

#include "window/ActionTable.h"
#include "window/Menu.h"

#include <string_view>
#include <vector>

namespace tabulon {

class DocumentController;

/// An action is searched for in the outline controller of the current document, then in the documents' table,
/// then in those of the application.
class ResponderChain {
public:
    /// The tables of the application are searched in the order of `application`. Requires: `documents` and
    /// the tables outlive this object.
    ResponderChain(const DocumentController& documents, std::vector<const ActionTable*> application);

    /// Returns whether the item's action exists and is enabled. An item without an action is enabled if it
    /// has a submenu.
    bool validateMenuItem(const MenuItem& item) const;

    /// Runs the item's action and returns true. Returns false, and runs no action, if it does not exist or is
    /// not enabled.
    bool performMenuItem(const MenuItem& item) const;

private:
    /// Returns the first table with the action, or `nullptr`.
    const ActionTable* responderTo(std::string_view action) const;

    const DocumentController& documents_;
    const std::vector<const ActionTable*> application_;
};

} // namespace tabulon
