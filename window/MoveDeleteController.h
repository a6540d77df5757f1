// The sheet in which the user says what becomes of marked links: check boxes that stand for settings, and a
// button that says what it does. What it looks like is ui/'s affair.
#pragma once

#include "base/BaseServices.h"

#include <functional>
#include <string>

namespace tabulon {

class MoveDeleteController {
public:
    /// `deleteSheetExecute` is called when the user has chosen and the sheet is gone. The services must live
    /// longer.
    MoveDeleteController(const BaseServices& services, std::function<void()> deleteSheetExecute)
        : services_(services), deleteSheetExecute_(std::move(deleteSheetExecute)) {}

    /// Sets the boxes from their settings.
    void viewDidLoad();
    /// The title of the OK button: whether links are moved or deleted.
    std::string okTitle() const;
    /// Stores the boxes in their settings. The view dismisses itself and then calls `execute`.
    void done();
    void execute() { deleteSheetExecute_(); }

    // The check boxes. The view shows them, and sets them when the user does.

    bool duplicateLinks = false; ///< "DuplicateLinks"
    bool brokenLinks = false;    ///< "BrokenLinks"
    bool unknownLinks = false;   ///< "UnknownLinks"
    bool moveLinks = false;      ///< "MoveLinks"

private:
    const BaseServices services_;
    const std::function<void()> deleteSheetExecute_;
};

} // namespace tabulon
