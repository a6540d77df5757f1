// Marks, which show the status of links (model/LinkType.h): showing them, finding duplicates, and removing
// links by their status. Setting marks is no change of the document.
#pragma once

#include "model/StatusRemoval.h"
#include "platform/Platform.h"

namespace tabulon {

class ActionTable;
class BasketCommands;
class EditingCommands;
class Outline;
class StatusLine;
class WindowController;
struct SharedState;

/// The objects that the commands use.
struct MarkParts {
    Outline& outline;
    EditingCommands& editing;
    BasketCommands& baskets;
    StatusLine& statusLine;
    WindowController& window;
};

/// Adds the actions "showMarks:", "findDuplicates:", "clearMarks:", "deleteDuplicatesCommand:" and
/// "moveDeleteSheet:".
class MarkCommands {
public:
    /// Requires: the parts, the arguments and the services of `platform` outlive this object.
    MarkCommands(const MarkParts& parts, const Platform& platform, SharedState& shared, ActionTable& actions);

    /// Switches the setting "ShowMarks", and shows or hides the marks in every window.
    void showMarks();
    /// Switches the setting "ShowMarks" on and shows the marks in every window, if it is off.
    void enableMarks();
    /// Redraws all rows, after a change of the setting "ShowMarks".
    void showMarksView();
    /// Marks every link that has the URL of an earlier one (model/Duplicates.h), removes the mark from all
    /// others, shows the marks, and reports the number in the status line. Runs `moveWasteDown` first, and
    /// does nothing if the user cancels.
    void findDuplicates();
    /// Removes the marks of all links.
    void clearMarks();
    /// Returns `kAlertFirstButton` if the Waste Basket is missing or is the last top-level item. Otherwise
    /// asks whether it may be moved to the end, moves it if the user agrees, and returns the response.
    int moveWasteDown();
    /// Removes links as the settings of the sheet (MoveDeleteController) say. Runs `moveWasteDown` first, and
    /// does nothing if the user cancels.
    void deleteSheetExecute();
    /// Deletes links by their status, or moves them into the Waste Basket (model/StatusRemoval.h), and shows
    /// their number in an alert. Links that were deleted can be put back from the status line. Stores the
    /// number in the shared state.
    void deleteBookmarksConditionalCommand(const RemovalOptions& options);
    /// Asks whether all duplicates may be deleted, and runs `deleteDuplicatesExecute` if the user agrees.
    void deleteDuplicatesCommand();
    /// Marks all duplicates anew and deletes them. The settings of the sheet are not used.
    void deleteDuplicatesExecute();

private:
    /// Stores the setting and updates every window.
    void setShowMarks(bool shown);
    /// Removes the links, with their rows. Keeps the selection if no link was moved.
    Removal deleteBookmarksConditional(const RemovalOptions& options);

    Outline& outline_;
    EditingCommands& editing_;
    BasketCommands& baskets_;
    StatusLine& statusLine_;
    const Platform platform_;
    SharedState& shared_;
};

} // namespace tabulon
