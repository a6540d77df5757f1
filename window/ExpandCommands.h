// The commands that expand and collapse folders, and the double click on one.
#pragma once

#include "platform/Platform.h"
#include "window/Expansion.h"

namespace tabulon {

class ActionTable;
class FieldEditing;
class Outline;

/// Adds the actions "expandFolder:", "expandFolderPlus:", "collapseFolder:", "collapseFolderPlus:",
/// "expandAll:" and "collapseAll:".
class ExpandCommands {
public:
    /// What is handed in must live longer.
    ExpandCommands(Outline& outline, FieldEditing& fields, const Platform& platform, ActionTable& actions);

    /// Expands a collapsed folder and collapses an expanded one; where the setting "RememberDesktop" is on
    /// that counts as two changes.
    void doubleClickFolder(Bookmark& folder);

    // The four commands act on the selected rows; without any they show the no-selected-folder alert.

    void expandFolder();
    void expandFolderPlus();
    void collapseFolder();
    void collapseFolderPlus();

    void expandAll();
    void collapseAll();

private:
    void changeSelectedExpansion(ExpansionChange change);

    Outline& outline_;
    FieldEditing& fields_;
    const Platform platform_;
};

} // namespace tabulon
