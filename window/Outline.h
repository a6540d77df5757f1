// The core of a document window's outline: the visible rows of the document's tree, the selection, the items
// that commands act on, and the operations by which rows come and go. The view (OutlineView) mirrors the
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

/// Rows are numbers below `numberOfRows()`. Requires: every row taken as an argument is one.
class Outline {
public:
    class ManyRows;

    /// Shows the document's tree. The document and the settings must live longer.
    Outline(Document& document, const UserDefaults& defaults);
    Outline(const Outline&) = delete;
    Outline& operator=(const Outline&) = delete;

    Document& document() const { return document_; }
    /// Returns the folder whose children are the top level. It has no row.
    Bookmark& getMaster() const { return document_.getMaster(); }

    /// Sets the view, which must exist from before the first command until after the last.
    void setView(OutlineView* view) { view_ = view; }
    bool hasView() const { return view_ != nullptr; }
    OutlineView& view() const { return *view_; }

    void addRowObserver(RowObserver& observer) { rowObservers_.push_back(&observer); }
    void addSelectionObserver(SelectionObserver& observer) { selectionObservers_.push_back(&observer); }
    void addPointerObserver(PointerObserver& observer) { pointerObservers_.push_back(&observer); }

    // Rows

    /// Shows the tree of `master`, which is the document's from now on.
    void setMaster(Bookmark& master);
    std::size_t numberOfRows() const { return rows_.size(); }
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
    bool hasSelection() const { return view_->selectedRow().has_value(); }
    bool hasOneSelectedFolder() const;
    bool severalRowsAreSelected() const;
    /// Selects the rows of those items that have one.
    void selectItems(const std::vector<Bookmark*>& items);
    /// Selects the item's row alone and scrolls to it, if it has one.
    void selectRowOf(const Bookmark& item);
    /// Sets the row under the pointer when a context menu was opened; `nullopt` without one. It is forgotten
    /// when rows come or go.
    void setClickedRow(std::optional<std::size_t> row) { clickedRow_ = row; }
    /// Returns the items that a command acts on: the clicked row's alone where that is not selected, else
    /// those of the selected rows, from the top.
    std::vector<Bookmark*> getSelectionArray() const;

    // Reports of the view

    void selectionDidChange(SelectedBy cause);
    /// The pointer is over the outline: over this row, or over none.
    void mouseMoved(std::optional<std::size_t> row);
    void mouseExited();

    // Expanding. Items that are no folders, or are in the wanted state already, are skipped. Each item that
    // changes makes the document dirty if the setting "RememberDesktop" is on.

    void expandItem(Bookmark& item) { changeExpansion(item, ExpansionChange::Expand); }
    void collapseItem(Bookmark& item) { changeExpansion(item, ExpansionChange::Collapse); }
    /// The same with every folder below the item.
    void expandItemWithChildren(Bookmark& item) { changeExpansion(item, ExpansionChange::ExpandPlus); }
    void collapseItemWithChildren(Bookmark& item) { changeExpansion(item, ExpansionChange::CollapsePlus); }
    /// Changes the selected items, from the last to the first.
    void changeSelectedExpansion(ExpansionChange change);
    void changeWholeExpansion(ExpansionChange change);
    /// Expands what is above the node, from its nearest ancestor that has a row, so that it has a row itself.
    void reveal(const Bookmark& node);
    /// Records `changes` changes on the document if the setting "RememberDesktop" is on.
    void rememberDesktop(std::size_t changes);

    // Changes of the tree, each with the rows that it changes. None of them makes the document dirty.

    /// Inserts `item`, which is in no tree, as the child of `folder` with that index.
    void insertChild(Bookmark& folder, std::size_t index, Ref<Bookmark> item);
    /// Takes the item out of the tree. It has no parent then, and lives on where the caller holds it.
    void removeItem(Bookmark& item);
    /// Lays out the rows below `folder`, or all, after its children were put in another order.
    void childrenDidReorder(Bookmark& folder);
    /// Draws those items anew that have a row. Requires: the items are in document order.
    void reloadItems(const std::vector<Bookmark*>& items);

    /// Records one change on the document. Every command on the tree ends with it.
    void makeDirty();
    /// Draws the item's row anew, if it has one, and makes the document dirty.
    void itemDidChange(const Bookmark& item);
    /// Reports that the current row's item has changed.
    void currentRowDidChange();
    /// Reports that nodes were removed from the tree for good.
    void nodesDidLeave();

private:
    std::vector<Bookmark*> selectedItems(std::size_t from, std::size_t to) const;
    void forgetRowsUnderPointer();
    void rowsDidChange();
    void changeExpansion(Bookmark& item, ExpansionChange change);
    void replaceRowsBelow(std::size_t row, std::size_t shownBefore);
    void reloadKeepingSelection();
    std::optional<std::size_t> rowForNewChild(const Bookmark& folder, std::size_t index) const;
    void insertRowsOf(Bookmark& item, std::size_t row);

    Document& document_;
    const UserDefaults& defaults_;
    OutlineView* view_ = nullptr;
    VisibleRows rows_;
    std::vector<RowObserver*> rowObservers_;
    std::vector<SelectionObserver*> selectionObservers_;
    std::vector<PointerObserver*> pointerObservers_;
    std::optional<std::size_t> hoveredRow_;
    std::optional<std::size_t> clickedRow_;
    bool changesManyRows_ = false; // the rows are laid out anew at the end
};

/// While it exists, `insertChild` and `removeItem` change the tree without the rows; its end lays out all
/// rows anew, once, with nothing selected. It does nothing for `count` up to `kRowsHandledSingly`. Requires:
/// the caller holds the nodes that it removes until the end, and no other one of the outline exists.
class Outline::ManyRows {
public:
    static constexpr std::size_t kRowsHandledSingly = 64;
    static constexpr std::size_t kAlways = kRowsHandledSingly + 1;

    ManyRows(Outline& outline, std::size_t count);
    ~ManyRows();
    ManyRows(const ManyRows&) = delete;
    ManyRows& operator=(const ManyRows&) = delete;

private:
    Outline* const outline_; // null where the rows are handled singly
};

} // namespace tabulon
