// The commands that expand and collapse folders, and the double click on a folder.
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
    /// Requires: the arguments and the services of `platform` outlive this object.
    ExpandCommands(Outline& outline, FieldEditing& fields, const Platform& platform, ActionTable& actions);

    /// Expands a collapsed folder and collapses an expanded one. Where the setting "RememberDesktop" is on,
    /// this counts as two changes of the document. Cancels the automatic editing that the first click has
    /// scheduled.
    void doubleClickFolder(Bookmark& folder);

    // The four commands act on the selected rows. They show the no-selected-folder alert if no row is
    // selected.

    /// Expands the selected folders.
    void expandFolder();
    /// Expands the selected folders and every folder below them.
    void expandFolderPlus();
    /// Collapses the selected folders.
    void collapseFolder();
    /// Collapses the selected folders and every folder below them.
    void collapseFolderPlus();

    /// Expands every folder of the document. The selection stays.
    void expandAll();
    /// Collapses every folder of the document. The selection of rows that remain stays.
    void collapseAll();

private:
    void changeSelectedExpansion(ExpansionChange change);

    Outline& outline_;
    FieldEditing& fields_;
    const Platform platform_;
};

} // namespace tabulon
