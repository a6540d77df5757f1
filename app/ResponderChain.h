// The way from a menu item to the code of its action.
#pragma once

#include "window/ActionTable.h"
#include "window/Menu.h"

#include <string_view>
#include <vector>

namespace tabulon {

class DocumentController;

/// An action is looked for in the outline controller of the current window, then in the documents' table,
/// then in those of the application.
class ResponderChain {
public:
    /// Actions of the application are looked for in the order of `application`. What is passed in must
    /// outlive this object.
    ResponderChain(const DocumentController& documents, std::vector<const ActionTable*> application);

    /// Returns true when the item's action is there and enabled now, or when the item only holds a submenu.
    bool validateMenuItem(const MenuItem& item) const;

    /// Runs the item's action. Returns false, and runs nothing, when the action is not there or not enabled.
    bool performMenuItem(const MenuItem& item) const;

private:
    const ActionTable* responderTo(std::string_view action) const;

    const DocumentController& documents_;
    const std::vector<const ActionTable*> application_;
};

} // namespace tabulon
