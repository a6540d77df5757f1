// Marks, which are what is known of links (model/LinkType.h): showing them, finding duplicates, removing
// links by their status. Marking makes no change of the document.
#pragma once

#include "model/StatusRemoval.h"
#include "platform/Platform.h"

#include <memory>

namespace tabulon {

class ActionTable;
class BasketCommands;
class EditingCommands;
class Outline;
class StatusLine;
class WindowController;
struct SharedState;

/// The classes that the commands use.
struct MarkParts {
    Outline& outline;
    EditingCommands& editing;
    BasketCommands& baskets;
    StatusLine& statusLine;
    const WindowController& window;
};

/// Adds the actions "showMarks:", "findDuplicates:", "clearMarks:", "deleteDuplicatesCommand:" and
/// "moveDeleteSheet:".
class MarkCommands {
public:
    /// What is handed in must live longer.
    MarkCommands(const MarkParts& parts, const Platform& platform, SharedState& shared, ActionTable& actions);

    /// Shows the marks in every window, or hides them.
    void showMarks();
    void enableMarks();
    /// Draws all rows anew after a change of the setting "ShowMarks".
    void showMarksView();
    /// Marks every link whose URL an earlier one has (model/Duplicates.h).
    void findDuplicates();
    void clearMarks();
    /// Asks whether the Waste Basket may be moved to the end where it is elsewhere, and moves it. Returns the
    /// response, or the first button where there is nothing to ask.
    int moveWasteDown();
    /// Asks in a sheet which marked links are removed, and how; then runs `deleteSheetExecute`.
    void moveDeleteSheet();
    void deleteSheetExecute();
    /// Removes links by their status (model/StatusRemoval.h) and shows their number in an alert.
    void deleteBookmarksConditionalCommand(const RemovalOptions& options);
    /// Deletes all duplicates, after a question.
    void deleteDuplicatesCommand();
    void deleteDuplicatesExecute();

private:
    void setShowMarks(bool shown);
    Removal deleteBookmarksConditional(const RemovalOptions& options);

    Outline& outline_;
    EditingCommands& editing_;
    BasketCommands& baskets_;
    StatusLine& statusLine_;
    const WindowController& window_;
    const Platform platform_;
    SharedState& shared_;
    /// For the sheet, which may end after the document's window.
    const std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

} // namespace tabulon
