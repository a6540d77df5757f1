// Sorting (model/TreeSort.h): the commands for folders, clicks on column titles, and the question whether
// these sort.
#pragma once

#include "model/TreeSort.h"
#include "platform/Platform.h"
#include "window/OutlineColumns.h"

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
    /// Requires: the arguments and the services of `platform` outlive this object.
    SortCommands(Outline& outline, FieldEditing& fields, const Collation& collation, const Platform& platform,
                 ActionTable& actions);

    /// Applies the setting "ColumnSort". Called when the window exists, with its columns.
    void viewDidLoad();

    /// Sorts the folders that a command acts on, with everything below them, each as one change. `index` is
    /// the number of the key (`sortKeyForIndex`).
    void sortByIndexAscending(int index, bool ascending);
    /// A menu item with this tag sorts in descending order. Every item does so while Option is held.
    static constexpr int kSortDescendingTag = 1;
    /// Called when the user has clicked a column's title. Ends editing in place. If the column sorts, the
    /// document is sorted by it; each further click on the same title reverses the direction. If the setting
    /// "ColumnSort" is off and the question was not suppressed, `sortNameSheet` runs after 0.8 seconds.
    void headerClicked(Column column);
    /// Sorts the whole document by the column, as one change.
    void sortDescriptorsDidChange(Column column, SortDirection direction);
    /// Asks whether columns sort. If the user agrees, the setting "ColumnSort" is switched on and
    /// `addSortDescriptors` runs; otherwise editing in place ends and the selection is cleared. The user may
    /// suppress the question from then on.
    void sortNameSheet();
    /// Lets the columns that are shown sort. The first click on a title sorts in ascending order; for a
    /// column that already sorts, in the opposite of its first direction so far.
    void addSortDescriptors();
    /// Ends the sorting by columns and removes the sort indicator.
    void defaultNoSorting();

private:
    Outline& outline_;
    FieldEditing& fields_;
    const Collation& collation_;
    const Platform platform_;
    /// The pause before the question.
    std::unique_ptr<Timer> sortQuestion_;
    std::map<Column, SortDirection> sortPrototypes_; ///< the first direction of each column that sorts
    /// The column that the document was sorted by last; `nullopt` for none.
    std::optional<std::pair<Column, SortDirection>> sortedBy_;
};

} // namespace tabulon
