// The outline controller: one for each document window. It composes the outline (Outline), the window
// (WindowController) and the classes with the commands, each of which adds its own actions to the table. It
// has no rules of its own: a new feature is a class over Outline and a line here.
#pragma once

#include "model/Document.h"
#include "platform/Platform.h"
#include "text/Collation.h"
#include "window/ActionTable.h"
#include "window/BasketCommands.h"
#include "window/ClipboardCommands.h"
#include "window/EditingCommands.h"
#include "window/ExpandCommands.h"
#include "window/ExportCommands.h"
#include "window/FieldEditing.h"
#include "window/Finding.h"
#include "window/ItemExchange.h"
#include "window/MarkCommands.h"
#include "window/OpenCommands.h"
#include "window/Outline.h"
#include "window/OutlineCells.h"
#include "window/OutlineDragging.h"
#include "window/SharedState.h"
#include "window/SortCommands.h"
#include "window/StatusLine.h"
#include "window/TableSettings.h"
#include "window/WindowController.h"

namespace tabulon {

class DocumentWindow;

/// The controller of one document window.
class ViewController : public DocumentPresenter, private ActionObserver {
public:
    /// Becomes the document's presenter and lays out its tree. Requires: the document, the shared state and
    /// the services of `platform` outlive this object.
    ViewController(Document& document, const Platform& platform, SharedState& shared);
    /// Leaves the document without a presenter.
    ~ViewController() override;
    ViewController(const ViewController&) = delete;
    ViewController& operator=(const ViewController&) = delete;

    /// Sets the window that was made for this controller, and fills in what it shows besides rows. Requires:
    /// the window exists from before the first command until after the last.
    void setWindow(DocumentWindow* window);

    /// Returns the operations that menus run by name.
    const ActionTable& actions() const { return actions_; }

    // DocumentPresenter

    void setMaster(Bookmark& master) override;
    void documentStateChanged() override;

    /// Ends editing in place and takes over what was typed. Saves the change of an open info panel and closes
    /// it. Called before the window is closed.
    void finishEditing();

    // The parts. They exist as long as the controller.

    Outline& outline() { return outline_; }
    const Outline& outline() const { return outline_; }
    WindowController& window() { return window_; }
    Finding& finding() { return finding_; }
    StatusLine& statusLine() { return statusLine_; }
    const OutlineCells& cells() const { return cells_; }
    TableSettings& table() { return table_; }
    FieldEditing& fields() { return fields_; }
    ExpandCommands& expanding() { return expanding_; }
    OpenCommands& opening() { return opening_; }
    EditingCommands& editing() { return editing_; }
    const ItemExchange& items() const { return items_; }
    ClipboardCommands& clipboard() { return clipboard_; }
    OutlineDragging& dragging() { return dragging_; }
    BasketCommands& baskets() { return baskets_; }
    MarkCommands& marks() { return marks_; }
    SortCommands& sorting() { return sorting_; }
    ExportCommands& exporting() { return exporting_; }
    const ExportCommands& exporting() const { return exporting_; }

private:
    /// Takes over the text that is being typed, so that every command sees it.
    void willPerformAction() override { fields_.commitEditing(); }

    ActionTable actions_;
    /// The order of texts in the user's language.
    const Collation collation_;
    Outline outline_;
    Finding finding_;
    WindowController window_;
    StatusLine statusLine_;
    OutlineCells cells_;
    TableSettings table_;
    FieldEditing fields_;
    ExpandCommands expanding_;
    OpenCommands opening_;
    EditingCommands editing_;
    ItemExchange items_;
    ClipboardCommands clipboard_;
    OutlineDragging dragging_;
    BasketCommands baskets_;
    MarkCommands marks_;
    SortCommands sorting_;
    ExportCommands exporting_;
};

} // namespace tabulon
