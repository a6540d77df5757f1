// The sheet in which the user chooses what is done with marked links: check boxes for settings, and a button
// whose title says what it does. The view is in ui/.
#pragma once

#include "base/BaseServices.h"

#include <functional>
#include <string>

namespace tabulon {

/// The state of the sheet. The view and the callback share its ownership.
class MoveDeleteController {
public:
    /// Sets the function that `execute` calls. Requires: the services outlive this object.
    MoveDeleteController(const BaseServices& services, std::function<void()> deleteSheetExecute)
        : services_(services), deleteSheetExecute_(std::move(deleteSheetExecute)) {}

    /// Sets the boxes from their settings.
    void viewDidLoad();
    /// Returns the title of the OK button in the user's language: whether links are moved or deleted.
    std::string okTitle() const;
    /// Stores the boxes in their settings. The view calls it when the user confirms, closes itself and then
    /// calls `execute`.
    void done();
    /// Removes the links.
    void execute() { deleteSheetExecute_(); }

    // The check boxes. The view shows them, and sets them when the user clicks. The comment names the
    // setting.

    bool duplicateLinks = false; ///< "DuplicateLinks"
    bool brokenLinks = false;    ///< "BrokenLinks"
    bool unknownLinks = false;   ///< "UnknownLinks"
    bool moveLinks = false;      ///< "MoveLinks"

private:
    const BaseServices services_;
    const std::function<void()> deleteSheetExecute_;
};

} // namespace tabulon
