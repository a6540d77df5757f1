// The open documents: creating, opening and closing them, each with its outline controller and its window.
// Saving, reverting and the questions to the user are classes of their own, which this class composes.
#pragma once

#include "app/Autosaving.h"
#include "app/ClosingQuestions.h"
#include "app/DocumentAlerts.h"
#include "app/DocumentWriting.h"
#include "app/FileConflicts.h"
#include "app/OpenDocuments.h"
#include "app/Refusals.h"
#include "app/Reverting.h"
#include "app/Saving.h"
#include "app/VersionsController.h"
#include "model/Document.h"
#include "platform/Platform.h"
#include "window/ActionTable.h"
#include "window/DocumentWindow.h"
#include "window/ViewController.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Creates windows and panels. Implemented in ui/.
class DocumentWindowMaker {
public:
    virtual ~DocumentWindowMaker() = default;
    /// Returns a window for the controller, not shown yet, or `nullptr` if none can be made. The controller
    /// exists as long as the window.
    virtual std::unique_ptr<DocumentWindow> makeWindow(ViewController& controller) = 0;

    /// Shows the panel of the document's versions in its window and returns at once. The panel calls
    /// `setPanel` when it opens, and with `nullptr` when it closes. It is closed with the window, and shares
    /// the ownership of the controller.
    virtual void presentVersions(std::shared_ptr<VersionsController> controller) = 0;
};

/// Receives the moments at which the program may have no more work.
class LastDocumentObserver {
public:
    virtual ~LastDocumentObserver() = default;
    /// Called after the last document was closed, and after an open panel closed while no document is open.
    virtual void noDocumentIsOpen() = 0;
};

/// The open documents. Paths are absolute and in the file system's encoding. Functions that show an alert
/// return after it was closed; meanwhile other documents may be closed.
class DocumentController : private UntitledDocuments {
public:
    using Done = SavingDone;

    /// Requires: the arguments and the services of `platform` outlive this object.
    DocumentController(const Platform& platform, DocumentWindowMaker& windows, LastDocumentObserver& observer,
                       SharedCommands& commands);
    ~DocumentController() override;

    /// Returns the actions saveDocument:, saveDocumentAs:, revertDocumentToSaved:, browseVersions:,
    /// performClose: and performMiniaturize:, all for the current document, and makeKeyAndOrderFront: for the
    /// document that the menu item represents.
    const ActionTable& actions() const { return actions_; }

    /// Returns the open documents in the order in which they were opened. Not owned by the caller; each is
    /// valid until it is closed.
    std::vector<Document*> documents() const { return list_.documents(); }
    /// Returns the window of `document`, or `nullptr` if it is not open. Valid until the document is closed.
    DocumentWindow* getWindow(const Document& document) const;
    /// Returns the outline controller of `document`, or `nullptr` if it is not open. Valid until the document
    /// is closed.
    ViewController* getViewController(const Document& document) const;
    /// Returns the document whose window is or was last the active one, or `nullptr` if no document is open.
    Document* currentDocument() const { return current_; }
    /// Makes `document` the current one. Called when its window has become the active one.
    void windowDidBecomeKey(Document& document) { current_ = &document; }

    /// Opens a new empty document in a window. Returns `nullptr` if no window can be made.
    Document* openUntitledDocumentAndDisplay();
    /// Marks the current document as one that the user has not asked for.
    void noteUntouchedDocument() { untouched_ = current_; }
    /// Closes the document that `noteUntouchedDocument` has marked, and removes the mark. Leaves it open if
    /// it has changes or a file, if an alert about it is shown, or if it is the only document.
    void closeUntouchedDocument();

    /// Opens the document with the content `bytes` of the file at `path` in a window, and adds the file to
    /// the recent documents. `identity` is that of the file just before it was read. Returns `nullptr` if no
    /// window can be made. Fails with the error of the reader, opens no document and shows no alert.
    Result<Document*> openDocument(const std::string& path, std::string_view bytes,
                                   const std::optional<FileIdentity>& identity);
    /// Shares the ownership of `root`, and expands it.
    Document* openUntitled(const Ref<Bookmark>& root, const std::string& name) override;
    /// Opens `root`, whose name is "Master", as a new untitled document with the default title and unsaved
    /// changes. Returns `nullptr` if no window can be made.
    Document* newMasterDocument(Ref<Bookmark> root);
    std::optional<Refusals::Offer> offerRemains(const Result<std::string>& bytes,
                                                const std::string& name) override;
    /// Brings the window of the file's document to the front and returns true, whatever path it was opened
    /// by. Returns false if the file is not open.
    bool showDocumentOfFile(const std::string& path);

    /// Saves the document (`Saving::saveDocument`).
    void saveDocument(Document& document, const Done& done) { saving_.saveDocument(document, done); }

    /// Shows the versions of the document. Does nothing if it has no file.
    void browseVersions(Document& document);

    /// Closes the document. If it has changes and a file, it is saved first; if it has changes and no file,
    /// the user is asked.
    void closeDocument(Document& document, const Done& done);
    /// Saves, or asks about, each document with unsaved changes, then closes all documents. Closes none if
    /// the user cancels.
    void closeAllDocuments(const Done& done);

    // Automatic saving: a few seconds after the last change, and at moments that the application reports.

    /// Saves every document that has changes. Asks no question. A document without a file is saved to its
    /// copy; so is one whose file another program has changed, or cannot be written.
    void autosaveAllDocuments() { autosaving_.saveAll(Autosaving::Moment::Deactivation); }
    /// Saves in the same way at the end of the session, which must not be held up. A failure is reported only
    /// if there is no copy either. Info panels are closed first.
    void autosaveAllDocumentsForTheEnd() { autosaving_.saveAll(Autosaving::Moment::End); }
    /// Opens the copies that earlier runs have left, each as an untitled document with changes. One alert
    /// lists the copies that cannot be read.
    void recoverUnsavedDocuments();

    /// Redraws the rows of every window, after a change of the setting "ShowMarks".
    void showMarksInEveryWindow();

    /// Returns the recent documents.
    RecentDocuments& recentDocuments() { return stores_.recent; }
    /// Returns the store of versions.
    VersionStore& versions() { return stores_.versions; }

private:
    /// Adds the actions to the table.
    void addActions();
    /// Adds the actions that concern windows.
    void addWindowActions();
    /// Makes controller and window, appends the document to the list and shows it. Returns `nullptr` if no
    /// window can be made.
    Document* makeWindowControllers(std::unique_ptr<OpenDocument> opened);
    /// Closes an open document without a question, and removes its copies. Makes the document that was opened
    /// last the current one if this one was. Calls the observer after the last document.
    void remove(const Document& document);
    /// Opens one copy as an untitled document with changes. Renames a copy that cannot be read, and adds it
    /// to `refusals`.
    void recover(const UnsavedDocuments::Copy& copy, Refusals& refusals);

    const Platform platform_;
    DocumentWindowMaker& windows_;
    LastDocumentObserver& observer_;
    /// Shared by all document windows.
    SharedState shared_;
    DocumentStores stores_;
    OpenDocuments list_;
    DocumentAlerts alerts_;
    FileConflicts conflicts_;
    DocumentWriting writing_;
    Reverting reverting_;
    Saving saving_;
    Autosaving autosaving_;
    ClosingQuestions closing_;
    ActionTable actions_;
    /// `nullptr` if no document is open.
    Document* current_ = nullptr;
    /// `nullptr` for none. Only compared, never read.
    const Document* untouched_ = nullptr;
};

} // namespace tabulon
