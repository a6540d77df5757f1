// The core of a document window's outline: the visible rows of the document's tree, the selection, the items
// that commands act on, and the operations that insert and remove rows. The view (OutlineView) shows the same
// rows. The commands on them are classes of their own, composed by ViewController.
#pragma once

#include "model/Document.h"
#include "window/Expansion.h"
#include "window/OutlineObservers.h"
#include "window/OutlineView.h"
#include "window/VisibleRows.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tabulon {

class UserDefaults;

/// The place of a child: `index` in the children of `folder`.
struct ChildPlace {
    Bookmark* folder;
    std::size_t index;
};

/// The rows of one document window. Rows are numbers below `numberOfRows()`. Requires: every row passed in is
/// one.
class Outline {
public:
    class ManyRows;

    /// Shows the document's tree. Requires: the document and the settings outlive this object.
    Outline(Document& document, const UserDefaults& defaults);
    Outline(const Outline&) = delete;
    Outline& operator=(const Outline&) = delete;

    /// Returns the document.
    Document& document() const { return document_; }
    /// Returns the folder whose children are the top level. It has no row.
    Bookmark& getMaster() const { return document_.getMaster(); }

    /// Sets the view, which must exist from before the first command until after the last.
    void setView(OutlineView* view) { view_ = view; }
    /// Returns the view. Requires: `setView` was called.
    OutlineView& view() const { return *view_; }

    /// Adds an observer. Requires: it exists as long as the outline is used.
    void addRowObserver(RowObserver& observer) { rowObservers_.push_back(&observer); }
    /// Adds an observer. Requires: it exists as long as the outline is used.
    void addSelectionObserver(SelectionObserver& observer) { selectionObservers_.push_back(&observer); }
    /// Adds an observer. Requires: it exists as long as the outline is used.
    void addPointerObserver(PointerObserver& observer) { pointerObservers_.push_back(&observer); }

    // Rows

    /// Shows the tree of `master`, which has become the document's tree. Calls the observers'
    /// `masterDidChange` and `nodesDidLeave`. No row is selected after that.
    void setMaster(Bookmark& master);
    /// Returns the number of rows.
    std::size_t numberOfRows() const { return rows_.size(); }
    /// Returns the item of a row.
    Bookmark& itemAtRow(std::size_t row) const { return rows_.at(row); }
    /// Returns `nullopt` for an item that is not shown.
    std::optional<std::size_t> rowForItem(const Bookmark& item) const { return rows_.rowOf(item); }
    /// Returns the depth of a row, 0 for the top level. Counting ends at `kDeepestIndent`: deeper rows are
    /// drawn there.
    int levelForRow(std::size_t row) const;
    static constexpr int kDeepestIndent = 48;

    // The selection. The current row is the view's `selectedRow`.

    /// Returns the items of the selected rows, from the top.
    std::vector<Bookmark*> selectedItems() const { return selectedItems(0, rows_.size()); }
    /// Returns whether a row is selected.
    bool hasSelection() const { return view_->selectedRow().has_value(); }
    /// Returns whether exactly one row is selected and its item is a folder.
    bool hasOneSelectedFolder() const;
    /// Selects the rows of those items that have one.
    void selectItems(const std::vector<Bookmark*>& items);
    /// Selects the item's row alone and scrolls to it, if it has one.
    void selectRowOf(const Bookmark& item);
    /// Sets the row under the pointer when a context menu was opened; `nullopt` without one. It is reset when
    /// rows are inserted or removed.
    void setClickedRow(std::optional<std::size_t> row) { clickedRow_ = row; }
    /// Returns the items that a command acts on: the clicked row's alone where that is not selected, else
    /// those of the selected rows, from the top.
    std::vector<Bookmark*> getSelectionArray() const;

    // Reports of the view

    /// Calls the observers. Does nothing before the view is set.
    void selectionDidChange(SelectedBy cause);
    /// Called when the pointer has moved over the outline, to this row or to no row. Calls the observers if
    /// the row is another one, and for each move over no row.
    void mouseMoved(std::optional<std::size_t> row);
    /// Called when the pointer has left the outline. Calls the observers.
    void mouseExited();

    // Expanding. Items that are no folders, or are in the wanted state already, are skipped. Each item that
    // changes makes the document dirty if the setting "RememberDesktop" is on.

    /// Expands the item.
    void expandItem(Bookmark& item) { changeExpansion(item, ExpansionChange::Expand); }
    /// Collapses the item.
    void collapseItem(Bookmark& item) { changeExpansion(item, ExpansionChange::Collapse); }
    /// Expands the item and every folder below it.
    void expandItemWithChildren(Bookmark& item) { changeExpansion(item, ExpansionChange::ExpandPlus); }
    /// Collapses the item and every folder below it.
    void collapseItemWithChildren(Bookmark& item) { changeExpansion(item, ExpansionChange::CollapsePlus); }
    /// Changes the selected items, from the last to the first.
    void changeSelectedExpansion(ExpansionChange change);
    /// Changes every folder of the document, whether the change is a Plus one or not.
    void changeWholeExpansion(ExpansionChange change);
    /// Expands the folders that the node is in, so that it has a row. Does nothing if the node is not in the
    /// tree.
    void reveal(const Bookmark& node);
    /// Records `changes` changes on the document if the setting "RememberDesktop" is on.
    void rememberDesktop(std::size_t changes);

    // Changes of the tree, each with the rows that it changes. None of them makes the document dirty.

    /// Inserts `item`, which is in no tree, as the child of `folder` with that index.
    void insertChild(Bookmark& folder, std::size_t index, Ref<Bookmark> item);
    /// Removes the item from the tree. It has no parent after that, and is destroyed unless the caller holds
    /// it.
    void removeItem(Bookmark& item);
    /// Lays out the rows below `folder`, or all, after its children were put in another order.
    void childrenDidReorder(Bookmark& folder);
    /// Redraws the rows of those items that have one. Requires: the items are in document order.
    void reloadItems(const std::vector<Bookmark*>& items);

    /// Records one change on the document. Every command on the tree ends with it.
    void makeDirty();
    /// Redraws the item's row, if it has one, and makes the document dirty.
    void itemDidChange(const Bookmark& item);
    /// Reports to the observers that the current row's item has changed.
    void currentRowDidChange();
    /// Reports to the observers that nodes were removed from the tree for good.
    void nodesDidLeave();

private:
    /// Returns the items of the selected rows from `from` on and below `to`.
    std::vector<Bookmark*> selectedItems(std::size_t from, std::size_t to) const;
    /// Resets the rows under the pointer and calls the observers' `rowsWillChange`.
    void forgetRowsUnderPointer();
    /// Calls the observers.
    void rowsDidChange();
    /// Changes one item, with the rows and the change count.
    void changeExpansion(Bookmark& item, ExpansionChange change);
    /// Replaces the rows of the subtree of the item in `row`, which has `shownBefore` of them, and keeps
    /// their selection.
    void replaceRowsBelow(std::size_t row, std::size_t shownBefore);
    /// Lays out all rows again, selects the same items, and keeps the current row visible.
    void reloadKeepingSelection();
    /// Returns the row of a new child of `folder` before it is inserted; `nullopt` if it will have none.
    std::optional<std::size_t> rowForNewChild(const Bookmark& folder, std::size_t index) const;
    /// Inserts the rows of the item and of what is shown below it, from `row` on.
    void insertRowsOf(Bookmark& item, std::size_t row);

    Document& document_;
    const UserDefaults& defaults_;
    OutlineView* view_ = nullptr;
    VisibleRows rows_;
    std::vector<RowObserver*> rowObservers_;
    std::vector<SelectionObserver*> selectionObservers_;
    std::vector<PointerObserver*> pointerObservers_;
    /// The row under the pointer.
    std::optional<std::size_t> hoveredRow_;
    /// The row of an open context menu.
    std::optional<std::size_t> clickedRow_;
    bool changesManyRows_ = false; // the rows are laid out again at the end
};

/// While it exists, `insertChild` and `removeItem` change the tree without the rows. Its destructor lays out
/// all rows again, once, with none selected. It has no effect for a `count` up to `kRowsHandledSingly`.
/// Requires: the caller holds the nodes that it removes until then, and no other ManyRows of the outline
/// exists.
class Outline::ManyRows {
public:
    static constexpr std::size_t kRowsHandledSingly = 64;
    /// A count for which it always has its effect.
    static constexpr std::size_t kAlways = kRowsHandledSingly + 1;

    /// Begins the changes; `count` is the number of items that will be inserted or removed.
    ManyRows(Outline& outline, std::size_t count);
    ~ManyRows();
    ManyRows(const ManyRows&) = delete;
    ManyRows& operator=(const ManyRows&) = delete;

private:
    Outline* const outline_; // null where the rows are handled singly
};

} // namespace tabulon
