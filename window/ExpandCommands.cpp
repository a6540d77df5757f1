#include "window/ExpandCommands.h"

#include "window/ActionTable.h"
#include "window/FieldEditing.h"
#include "window/Outline.h"
#include "window/SharedAlerts.h"

namespace tabulon {

ExpandCommands::ExpandCommands(Outline& outline, FieldEditing& fields, const Platform& platform,
                               ActionTable& actions)
    : outline_(outline), fields_(fields), platform_(platform) {
    actions.add("expandFolder:", [this](const MenuItem&) { expandFolder(); });
    actions.add("expandFolderPlus:", [this](const MenuItem&) { expandFolderPlus(); });
    actions.add("collapseFolder:", [this](const MenuItem&) { collapseFolder(); });
    actions.add("collapseFolderPlus:", [this](const MenuItem&) { collapseFolderPlus(); });
    actions.add("expandAll:", [this](const MenuItem&) { expandAll(); });
    actions.add("collapseAll:", [this](const MenuItem&) { collapseAll(); });
}

void ExpandCommands::doubleClickFolder(Bookmark& folder) {
    fields_.cancelAutoEdit(); // the first click was not meant for the name
    isExpanded(folder) ? outline_.collapseItem(folder) : outline_.expandItem(folder);
    outline_.rememberDesktop(1);
}

void ExpandCommands::expandFolder() {
    changeSelectedExpansion(ExpansionChange::Expand);
}

void ExpandCommands::expandFolderPlus() {
    changeSelectedExpansion(ExpansionChange::ExpandPlus);
}

void ExpandCommands::collapseFolder() {
    changeSelectedExpansion(ExpansionChange::Collapse);
}

void ExpandCommands::collapseFolderPlus() {
    changeSelectedExpansion(ExpansionChange::CollapsePlus);
}

void ExpandCommands::expandAll() {
    outline_.changeWholeExpansion(ExpansionChange::ExpandPlus);
}

void ExpandCommands::collapseAll() {
    outline_.changeWholeExpansion(ExpansionChange::CollapsePlus);
}

void ExpandCommands::changeSelectedExpansion(ExpansionChange change) {
    outline_.hasSelection() ? outline_.changeSelectedExpansion(change)
                            : noSelectedFolder(platform_, outline_.document());
}

} // namespace tabulon
