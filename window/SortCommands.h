// Sorting (model/TreeSort.h): the commands on folders, clicks on column titles, and the question whether
// those may sort.
#pragma once

#include "model/TreeSort.h"
#include "platform/Platform.h"
#include "window/CellContent.h"

#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace tabulon {

class ActionTable;
class Collation;
class FieldEditing;
class Outline;

/// Adds the actions "sortByName:", "sortByURL:", "sortByTags:", "sortByDateAdded:", "sortByDateModified:" and
/// "sortByDateLastOpened:".
class SortCommands {
public:
    /// What is handed in must live longer.
    SortCommands(Outline& outline, FieldEditing& fields, const Collation& collation, const Platform& platform,
                 ActionTable& actions);

    /// Applies the setting "ColumnSort". Called when the window is there, with its columns.
    void viewDidLoad();

    /// Sorts the folders that a command acts on; `index` is the number of the key.
    void sortByIndexAscending(int index, bool ascending);
    /// A menu item with this tag sorts descending; so does every one while Option is held.
    static constexpr int kSortDescendingTag = 1;
    /// Called when the user has clicked a column's title. Where columns sort, the document is sorted by it,
    /// in the other direction with each further click. Where the user was not asked yet whether columns sort,
    /// a question follows after 0.8 seconds.
    void headerClicked(Column column);
    void sortDescriptorsDidChange(Column column, SortDirection direction);
    void sortNameSheet();
    /// Lets columns sort, ascending at first; those that do already, in the other direction at first.
    void addSortDescriptors();
    void defaultNoSorting();

private:
    Outline& outline_;
    FieldEditing& fields_;
    const Collation& collation_;
    const Platform platform_;
    std::unique_ptr<Timer> sortQuestion_;
    std::map<Column, SortDirection> sortPrototypes_; ///< of the columns that sort, how they do at first
    std::optional<std::pair<Column, SortDirection>> sortedBy_;
};

} // namespace tabulon
