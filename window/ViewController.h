// The outline controller: one for each document window. It holds the visible rows of the document's tree and
// carries every command on them; the view (OutlineView) mirrors it. Split by concern: _presentation (what
// cells show), _table (font size, tags column), _expanding, _inserting, _removing, _fields (editing in
// place), _labels, _pasteboard, _dragging, _baskets, _marks, _sorting, _find, _info, _hover (the URL field),
// _export.
#pragma once

#include "model/Document.h"
#include "model/Finder.h"
#include "model/RemovedItems.h"
#include "model/StatusRemoval.h"
#include "model/TreeSort.h"
#include "platform/Platform.h"
#include "text/Collation.h"
#include "window/ActionTable.h"
#include "window/CellContent.h"
#include "window/DocumentWindow.h"
#include "window/DragInfo.h"
#include "window/FindBar.h"
#include "window/Outline.h"
#include "window/PasteboardItem.h"
#include "window/SharedState.h"
#include "window/StatusLine.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

class GetInfoController;

enum class FontSizeStep { Larger, Smaller };

/// Whether the name of a new item is edited at once.
enum class Editing { No, Begins };

/// Rows are numbers below `numberOfRows()`; every row taken as an argument must be one. The document and the
/// shared state must live longer than the controller.
class ViewController : public DocumentPresenter,
                       private RowObserver,
                       private SelectionObserver,
                       private PointerObserver {
public:
    /// Becomes the document's presenter and lays out its tree.
    ViewController(Document& document, const Platform& platform, SharedState& shared);
    ~ViewController() override;
    ViewController(const ViewController&) = delete;
    ViewController& operator=(const ViewController&) = delete;

    /// The window that shows this controller, made for it; it must be there from before the first command to
    /// after the last. Fills in what the window shows besides rows.
    void setWindow(DocumentWindow* window);
    DocumentWindow* getWindow() const { return window_; }

    Document& document() const { return document_; }
    Outline& outline() { return outline_; }
    const Outline& outline() const { return outline_; }

    /// The operations that menus reach by name.
    const ActionTable& actions() const { return actions_; }

    // DocumentPresenter

    void setMaster(Bookmark& master) override;
    void documentStateChanged() override;

    /// The window shows `title` in place of the document's name until the document has a file.
    void setWindowTitle(std::string title);
    std::string windowTitle() const;

    // Rows

    /// The first row from `start` on, going round, whose name begins with `prefix`, ignoring case. For typing
    /// ahead.
    std::optional<std::size_t> rowWithPrefix(const std::string& prefix, std::size_t start) const;

    // Presentation

    /// What the cell shows. Selected rows show their texts without the label's colour.
    CellContent viewForTableColumn(Column column, std::size_t row, bool selected) const;
    /// The tool tip of the cell as a whole; images in it may have their own (CellContent). Empty for none.
    Text toolTipForCell(Column column, std::size_t row) const;
    OutlineFont font() const;
    /// The height of every row in points of 1/72 inch.
    double rowHeight() const;

    // Font size. One step changes the size and the row height by one point, within the two limits; a window
    // shows what is stored when it comes up.

    void zoomIn();
    void zoomOut();
    void moveTableFontSize(FontSizeStep step);
    /// Shows and stores both. A size from 11 up to, not including, 14 is the URL field's as well.
    void setTableFontSizeRowHeight(double size, double rowHeight);
    static constexpr double kSmallestFontSize = 6;
    static constexpr double kLargestFontSize = 64;

    // The tags column. It comes up with the window where the setting "AddTagsColumn" says so.

    void addTagsColumn();
    void removeTagsColumn();
    /// The user has moved a column.
    void outlineViewColumnDidMove();
    /// The user has made the tags column this wide, in points of 1/72 inch.
    void tagsColumnDidResize(double width);

    // Expanding

    /// Expands a collapsed folder and collapses an expanded one; where the setting "RememberDesktop" is on
    /// that counts as two changes.
    void doubleClickFolder(Bookmark& folder);
    /// The four commands act on the selected rows; without any they show the no-selected-folder alert.
    void expandFolder();
    void expandFolderPlus();
    void collapseFolder();
    void collapseFolderPlus();
    void expandAll();
    void collapseAll();

    // New items. An item goes into the current row's folder, as its first child, where that is expanded, else
    // behind the current row; without one it goes to the top. Its row is selected alone.

    void addNewData(Ref<Bookmark> item, Editing editing = Editing::No);
    /// The same relative to `row`; nothing means the root.
    void insertNewData(Ref<Bookmark> item, std::optional<std::size_t> row);
    void newBookmark();
    void newFolder();
    /// Into the current row's folder, which is expanded for it; does nothing where that is no folder.
    void addBookmark();
    void insertSeparator();

    // Removing and moving

    /// Removes the items of the selected rows, or shows the no-selection alert.
    void deleteSelection();
    /// The one selected item goes above the row before it, or behind the row after it, in and out of
    /// folders. They beep where there is nowhere to go and for several rows. An expanded folder whose rows
    /// are the last ones is removed by moving it down.
    void moveUp();
    void moveDown();
    /// Inserts the items in their places, as one change, and selects them. Requires that nothing else of the
    /// tree has changed since they were removed.
    void putBack(const std::vector<RemovedItem>& removed);

    // The pasteboard. What is put there and what is read of it is in BookmarkPasteboard.h and MimeItems.h.

    /// Copies the items that a command acts on. Without any the pasteboard stays as it is.
    void copyEditMenu();
    void copyBookmarks();
    void copyBookmarksArray(const std::vector<Bookmark*>& items);
    /// Copies what a command acts on, and deletes the selected rows: with a clicked row outside the selection
    /// these are not the same.
    void cut();
    /// Inserts what the pasteboard holds, one item after the other as `addNewData` does. A text alone of
    /// several lines, or with a tab, is split into bookmarks.
    void pasteEditMenu();
    /// Inserts the bookmark that "name TAB URL", or a URL alone, stands for. Null, and nothing inserted,
    /// where the URL is empty.
    Ref<Bookmark> splitBookmark(std::string_view string);

    // Services: other programs that are handed a text and may hand one back. Desktops without a menu of such
    // programs ask for none of this.

    /// Whether such a program can be given what it wants: the text type (PasteboardItem.h), whatever it would
    /// give back.
    static bool validRequestorForSendTypeReturnType(std::string_view sendType, std::string_view returnType);
    /// Makes `pasteboard` an item with the current row's URL as its only text. False, with nothing in it,
    /// when no row is selected or it has no URL; false, and as it was, when no text is among the types
    /// wanted.
    bool writeSelectionToPasteboardTypes(PasteboardItem& pasteboard,
                                         const std::vector<std::string_view>& types) const;
    /// What comes back never changes the document. Always true.
    static bool readSelectionFromPasteboard(const PasteboardItem& pasteboard);

    // Dragging

    /// The items of the selected rows for a drag that begins in this outline.
    std::vector<PasteboardItem> beginDraggingSession();
    /// Items as the desktop's programs hand them on (MimeItems.h), and back.
    MimeContent mimeContentOf(const std::vector<PasteboardItem>& items) const;
    std::vector<PasteboardItem> itemsIn(const MimeContent& content) const;
    /// The content of a drag of these items, which begins now.
    MimeContent contentForDrag(const std::vector<PasteboardItem>& items) const;
    /// The items in a drag of another program, of which the toolkit has handed on `content`.
    std::vector<PasteboardItem> itemsInForeignDrag(MimeContent content) const;
    /// Whether an outline takes such a drag at all.
    static bool isDragOfInterest(const std::vector<PasteboardItem>& items);
    /// Where a drop at the pointer would go: over `row` (nothing: below the last one), as far down in it as
    /// `fraction` says (0 is its top, 1 its bottom), and as far to the right as rows of `level` stand. Behind
    /// the last child of a folder the level decides in which folder it ends up.
    DropSpot dropSpot(std::optional<std::size_t> row, double fraction, int level) const;
    /// True when the drag began in this outline and carries live nodes.
    bool dragIsLocalReorder(const DragInfo& drag) const;
    /// What a drop would do: on `item`, or on the root where it is null, and before its child number
    /// `childIndex`, or on the item itself where there is no index. None refuses.
    DragOperation validateDrop(const DragInfo& drag, Bookmark* item, std::optional<std::size_t> childIndex);
    /// Does what the last validation has answered. False when nothing may be dropped there.
    bool acceptDrop(const DragInfo& drag, Bookmark* item, std::optional<std::size_t> childIndex);
    /// A drag that began in this outline has ended.
    void draggingSessionEnded(DragOperation operation);
    DragOperation dragOperation() const { return dragOperation_; }
    // Baskets: top-level items known by their names alone (model/Baskets.h). What arrives from elsewhere goes
    // to the top of a folder. An item that arrives stands in no tree.

    /// The basket of that name, or null.
    Bookmark* SearchBasket(const std::string& name) const;
    /// A new basket, not yet in the tree.
    Ref<Bookmark> CreateBasket(const std::string& name) const;
    /// The item becomes the last one of the top level. Nothing is selected then.
    void DropBasketAtEnd(Ref<Bookmark> item);
    /// The baskets; one that is missing is made, at the end.
    Bookmark& DropBasketExists();
    Bookmark& WasteBasketExists();
    /// The item becomes the folder's first one. Its row is selected alone where the folder is expanded, else
    /// nothing is; in the Waste Basket nothing ever is.
    void AddToBasket(Ref<Bookmark> item);
    void AddToWaste(Ref<Bookmark> item);
    void DropBookmarkIn(Ref<Bookmark> item, Bookmark& folder);
    void DropBookmarkAtRoot(Ref<Bookmark> item);

    // Labels

    void labelBookmark(std::uint8_t label);

    // Marks: what is known of links (LinkType.h). Marking makes no change of the document.

    /// Shows or hides them in every window.
    void showMarks();
    void enableMarks();
    /// The setting "ShowMarks" has changed: the rows are shown accordingly.
    void showMarksView();
    /// Marks every link whose URL an earlier one has (model/Duplicates.h).
    void findDuplicates();
    void clearMarks();
    /// Has the Waste Basket moved to the end where it stands elsewhere, after a question. Gives the response,
    /// or that of the first button where there is nothing to ask.
    int moveWasteDown();
    /// Asks in a sheet which marked links go, and where; then `deleteSheetExecute`.
    void moveDeleteSheet();
    void deleteSheetExecute();
    /// Removes links by their status (model/StatusRemoval.h) and tells how many.
    void deleteBookmarksConditionalCommand(const RemovalOptions& options);
    /// Deletes all duplicates, after a question.
    void deleteDuplicatesCommand();
    void deleteDuplicatesExecute();
    /// Tells what the marks mean.
    void legendaSheet();

    // Sorting (model/TreeSort.h)

    /// Sorts the folders that a command acts on; `index` is the number of the key.
    void sortByIndexAscending(int index, bool ascending);
    /// A menu item with this tag sorts descending; so does every one while Option is held.
    static constexpr int kSortDescendingTag = 1;
    /// The user has clicked a column's title. Where columns sort, the document is sorted by it, the other way
    /// round with each further click; where the user was not asked yet whether they are to, a question comes
    /// up in a moment.
    void headerClicked(Column column);
    void sortDescriptorsDidChange(Column column, SortDirection direction);
    void sortNameSheet();
    /// Columns sort from now on, upwards first; those that do already, the other way round first.
    void addSortDescriptors();
    void defaultNoSorting();

    // Finding (model/Finder.h)

    FindBarController& findBar() { return findBar_; }
    /// Returns whether a cell of the outline is being edited.
    bool isEditing() const { return outline().isEditing(); }
    const std::string& searchString() const { return finder_.searchString(); }
    void setSearchString(std::string text) { finder_.setSearchString(std::move(text)); }
    Bookmark* foundBookmark() const { return finder_.foundBookmark(); }
    void setFoundBookmark(Bookmark* node) { finder_.setFoundBookmark(node); }
    /// Goes to the first match and gives the number of all.
    std::size_t findText(const std::string& string);
    /// The same in portions of so many nodes; none before the last one.
    void beginFinding(const std::string& string);
    std::optional<std::size_t> goOnFinding(std::size_t nodes);
    /// Beeps without a search string and behind the last match.
    void findNext();
    /// Selects the node's row alone and scrolls to it; collapsed folders above it are expanded. A node
    /// without a row leaves the selection as it is. What was found in tags or note is shown in the info
    /// panel.
    void selectBookmark(Bookmark& node);

    // The info panel (GetInfoController.h)

    /// Shows the clicked row's item where that is not selected, else the current row's; shows the
    /// no-selection alert without one. A panel that is up goes to that item.
    void getInfo();
    /// The panel has changed the item.
    void infoDidChange(const Bookmark& item, bool newURL);

    // Editing in place

    bool shouldEdit(Column column, const Bookmark& item) const;
    /// The field has ended with this text. A text that is another one than before is taken over, with the
    /// date of the change.
    void endNameEdit(std::size_t row, const std::string& string);
    void endURLEdit(std::size_t row, const std::string& string);
    void endTagsEdit(std::size_t row, const std::string& string);
    /// Begins with the current row's name; shows the no-selection alert without one.
    void editBookmark();
    /// The same for one field, silently.
    void editNameBookmark();
    void editURLBookmark();
    void editTagsBookmark();
    /// Begins to edit the cell, which must be one that can be edited. Editing that goes on ends first, and
    /// none begins by itself any more.
    void beginEditing(Column column, std::size_t row);
    void endEdit();
    /// Editing does not begin by itself for the selection of before: a menu opens.
    void cancelAutoEdit() { autoEdit_.reset(); }
    /// Ends editing in place, if it goes on, and takes over what was typed. Every action does so before it
    /// runs.
    void commitEditing();
    /// The same when the window is about to go: an info panel that is up saves its change and goes as well.
    void finishEditing();

    // The URL field

    StatusLine& statusLine() { return statusLine_; }
    /// "3 bookmarks in 2 folders" for the whole document.
    std::string countsText();

    // Export. The settings say how (formats/ExportFormats.h). It fails for a tree that is nested too deep or
    // too large for such a file.

    /// The document as a Netscape bookmark file.
    Result<std::string> exportToHTML() const;
    Result<std::string> exportToXBEL() const;
    /// The document as tab-separated text.
    Result<std::string> exportToText() const;
    /// Asks in a panel for a file and for options, which become settings, and writes the document in the
    /// format that the file's extension stands for. A file in HTML becomes that of the HTML copies where the
    /// setting "SaveAsHTML" says so. A document that the format cannot hold is told in an alert; that the
    /// file cannot be written is only logged.
    void exportText();
    /// Asks for a file for each selected bookmark that has a URL, in the order of the rows, until one panel
    /// is cancelled.
    void saveBookmark();
    /// Asks for a file and writes the link into it (formats/export/LinkFile.h); `done`, if any, is told
    /// whether the user has confirmed. Does nothing without a URL. That the file cannot be written is only
    /// logged.
    void saveBookmarkFile(const Bookmark& link, const std::function<void(bool confirmed)>& done = nullptr);

    // Alerts

    void noSelection();
    void noSelectedFolder();

private:
    struct Counts {
        std::size_t bookmarks = 0;
        std::size_t folders = 0;
    };

    void rowsWillChange() override;
    void rowsDidChange() override;
    void treeDidChange() override;
    void nodesDidLeave() override;
    void masterDidChange() override;
    void selectionDidChange(SelectedBy cause) override;
    void currentRowDidChange() override;
    void pointerIsOver(std::optional<std::size_t> row) override;
    void pointerDidLeave() override;
    void addActions();
    void addEditingActions();
    void addMarkActions();
    void addSortActions();
    void addFindActions();
    Date now() const { return Date::now(platform_.base.clock); }
    ChildPlace placeAfter(Bookmark& anchor) const;
    void insertAtAnchor(Bookmark& anchor, Ref<Bookmark> item);
    void addManyNewData(const std::vector<Ref<Bookmark>>& items);
    void setShowMarks(bool shown);
    Removal deleteBookmarksConditional(const RemovalOptions& options);
    void showMatch();
    Bookmark& basketOfKey(std::string_view key);
    void addFirst(Ref<Bookmark> item, Bookmark& folder);
    void tellDeletion(std::vector<RemovedItem> removed);
    Ref<Bookmark> bookmarkOf(const PasteboardItem& item) const;
    std::int64_t copyFormat() const;
    Ref<Bookmark> bookmarkOfText(std::string_view string) const;
    void splitBookmarks(std::string_view text);
    void addNewItems(const std::vector<Ref<Bookmark>>& items);
    DropSpot spotBefore(std::size_t row) const;
    DropSpot spotBehind(std::size_t row, int level) const;
    std::optional<ChildPlace> placeOfDrop(Bookmark* item, std::optional<std::size_t> childIndex) const;
    Ref<Bookmark> droppedNode(const DragInfo& drag, const PasteboardItem& dragged, ChildPlace& place);
    void selectDropped(const std::vector<Ref<Bookmark>>& dropped);
    void fieldDidChange(Bookmark& item);
    void editCurrentRow(Column column);
    void scheduleAutoEdit();
    void autoEdit(Column column);
    void viewDidLoad();
    bool canMoveTableFontSize(FontSizeStep step) const;
    void fitURLField(double fontSize);
    void selectionAlert(const char* informativeKey);
    CellContent nameCell(const Bookmark& item, const std::optional<LabelColor>& color) const;
    void changeSelectedExpansion(ExpansionChange change);
    Counts countNodes() const;
    void updateURL();
    Result<std::string> exportTo(std::string_view format, Progress* progress = nullptr) const;
    void exportToFile(const std::string& path);
    void writeOrLog(const std::string& path, std::string_view bytes);
    void saveBookmarkFiles(std::vector<Ref<Bookmark>> links);
    /// For what may be called after the controller is gone.
    std::weak_ptr<const bool> life() const { return life_; }

    Document& document_;
    const Platform platform_;
    SharedState& shared_;
    ActionTable actions_;
    DocumentWindow* window_ = nullptr;
    Outline outline_{document_, platform_.base.defaults};
    std::optional<Counts> counts_;
    DragOperation dragOperation_ = DragOperation::None;
    std::unique_ptr<Timer> autoEdit_;
    std::unique_ptr<Timer> sortQuestion_;
    std::map<Column, SortDirection> sortPrototypes_; // of the columns that sort, how they do at first
    std::optional<std::pair<Column, SortDirection>> sortedBy_;
    const Collation collation_{platform_.base.texts.locale()};
    Finder finder_{shared_.findPhases, collation_};
    FindBarController findBar_{*this, platform_};
    std::shared_ptr<GetInfoController> info_;
    StatusLine statusLine_{*this, platform_};
    std::string windowTitle_; // empty where it is the document's name
    const std::shared_ptr<const bool> life_ = std::make_shared<const bool>(true);
};

} // namespace tabulon
