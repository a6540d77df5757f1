// The open documents: creating, opening, saving and closing them, each with its outline controller and its
// window. Files of other programs, and the menus, are in other classes of app/.
#pragma once

#include "app/RecentDocuments.h"
#include "app/Refusals.h"
#include "app/RevertPoints.h"
#include "app/UnsavedDocuments.h"
#include "app/VersionsController.h"
#include "model/Document.h"
#include "platform/Platform.h"
#include "window/ActionTable.h"
#include "window/DocumentWindow.h"
#include "window/ViewController.h"

#include <functional>
#include <map>
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
class DocumentController {
public:
    /// Receives whether the operation was done: false if the user has cancelled it or it has failed. A
    /// failure has been reported to the user before.
    using Done = std::function<void(bool done)>;

    /// Requires: the arguments and the services of `platform` outlive this object.
    DocumentController(const Platform& platform, DocumentWindowMaker& windows, LastDocumentObserver& observer,
                       SharedCommands& commands);
    ~DocumentController();

    /// Returns the actions saveDocument:, saveDocumentAs:, revertDocumentToSaved:, browseVersions:,
    /// performClose: and performMiniaturize:, all for the current document, and makeKeyAndOrderFront: for the
    /// document that the menu item represents.
    const ActionTable& actions() const { return actions_; }

    /// Returns the open documents in the order in which they were opened. Not owned by the caller.
    std::vector<Document*> documents() const;
    /// Returns the window of `document`, or `nullptr` if it is not open.
    DocumentWindow* getWindow(const Document& document) const;
    /// Returns the outline controller of `document`, or `nullptr` if it is not open.
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
    /// Opens the tree as a new untitled document of that name, with unsaved changes. Returns `nullptr` if no
    /// window can be made.
    Document* openUntitled(const Ref<Bookmark>& root, const std::string& name);
    /// Opens `root`, whose name is "Master", as a new untitled document with the default title and unsaved
    /// changes. Returns `nullptr` if no window can be made.
    Document* newMasterDocument(Ref<Bookmark> root);
    /// Returns the offer to open what can be read of a damaged document with these bytes, as an untitled
    /// document of that name. Returns `nullopt` if `bytes` is an error or no bookmark can be read.
    std::optional<Refusals::Offer> offerRemains(const Result<std::string>& bytes, const std::string& name);
    /// Brings the window of the file's document to the front and returns true, whatever path it was opened
    /// by. Returns false if the file is not open.
    bool showDocumentOfFile(const std::string& path);

    /// Saves the document to its file, or asks for one as `saveDocumentAs` does. If another program has
    /// changed, moved or removed the file since it was read or written, the user first decides what is done.
    void saveDocument(Document& document, const Done& done);
    /// Asks in a panel for a file and saves the document to it. Refuses, with an alert, a file that another
    /// open document has.
    void saveDocumentAs(Document& document, const Done& done);
    /// Returns whether the document has a file and differs from its state when the user opened or last saved
    /// it.
    bool canRevert(const Document& document) const;
    /// Asks whether the document may go back to its state when the user opened or last saved it, and restores
    /// that state. Where the program has saved over it since, the file is restored as well. If another
    /// program has changed the file, its content is read instead. Requires: the document has a file.
    void revertDocument(Document& document);

    /// Shows the versions of the document. Does nothing if it has no file.
    void browseVersions(Document& document);

    /// Closes the document. If it has changes and a file, it is saved first; if it has changes and no file,
    /// the user is asked.
    void closeDocument(Document& document, const Done& done);
    /// Saves, or asks about, each document with unsaved changes, then closes all documents. Closes none if
    /// the user cancels.
    void closeAllDocuments(const Done& done);

    // Automatic saving: a few seconds after the last change, and at moments that the application reports.

    /// How long after a change a document is saved, in seconds, and how often further changes may postpone
    /// that.
    static constexpr double kAutosavePause = 3;
    static constexpr int kMostPostponements = 9;
    /// Saves every document that has changes. Asks no question. A document without a file is saved to its
    /// copy; so is one whose file another program has changed, or cannot be written.
    void autosaveAllDocuments();
    /// Saves in the same way at the end of the session, which must not be held up. A failure is reported only
    /// if there is no copy either. Info panels are closed first.
    void autosaveAllDocumentsForTheEnd();
    /// Opens the copies that earlier runs have left, each as an untitled document with changes. One alert
    /// lists the copies that cannot be read.
    void recoverUnsavedDocuments();

    /// Redraws the rows of every window, after a change of the setting "ShowMarks".
    void showMarksInEveryWindow();

    /// Returns the recent documents.
    RecentDocuments& recentDocuments() { return recentDocuments_; }
    /// Returns the store of versions.
    VersionStore& versions() { return versions_; }

private:
    /// When a document is saved automatically, and what the user has been told about that.
    struct Autosave {
        std::unique_ptr<Timer> timer;
        bool changedSinceStart = false;
        int postponements = 0;
        double lastSeconds = 0; // how long the last save took
        bool failureTold = false;
        bool asked = false;
        bool deferred = false;                  // a save or a report waits for the end of an alert
        std::optional<FileIdentity> askedAbout; // the state of the file, where `asked`
    };
    /// The occasion of a save. After a pause questions may be asked; at the end even failures that lose no
    /// changes are not reported.
    enum class Moment { Pause, Deactivation, End };

    struct OpenDocument {
        explicit OpenDocument(const BaseServices& services) : document(services) {}

        // The order matters: the window is destroyed before its controller, and the controller before its
        // document.
        Document document;
        /// The identity of the file when it was read or written last.
        std::optional<FileIdentity> identity;
        Autosave autosave;
        int alertsUp = 0; // the number of alerts about this document that are shown
        bool isAskedToRevert = false;
        std::optional<ViewController> controller;
        std::unique_ptr<DocumentWindow> window;
    };

    enum class FileAnswer { Overwrite, DropMine, SaveAs, Cancel };
    enum class Before { Saving, Closing };

    /// Adds the actions to the table.
    void addActions();
    /// Adds the actions that concern windows.
    void addWindowActions();
    /// Returns the entry of an open document, or `nullptr`. The pointer `&document` is only compared, so the
    /// document may have been closed.
    OpenDocument* find(const Document& document) const;
    /// Makes controller and window, appends the document to the list and shows it. Returns `nullptr` if no
    /// window can be made.
    Document* makeWindowControllers(std::unique_ptr<OpenDocument> opened);
    /// Closes an open document without a question, and removes its copies.
    void remove(const Document& document);
    /// Stores the window's frame under the name of the document's file.
    void saveFrameUsingName(const OpenDocument& opened);
    /// Restores the frame that is stored under that name.
    void restoreWindowFrame(const OpenDocument& opened);
    /// Writes the document because the user has asked for it, and removes its revert point.
    Result<void> write(Document& document, const std::string& path);
    /// Writes the document to its own file for an automatic save.
    Result<void> writeByItself(Document& document);
    /// Runs the save tasks, keeps the version that is replaced, and writes `bytes` to `path`, which becomes
    /// the document's file. Fails with the error of the file store; then the document and the file are as
    /// they were.
    Result<void> writeBytes(Document& document, const std::string& path, const std::string& bytes);
    /// Writes the document as `write` does. Returns false, after an alert, if that fails.
    bool writeOrAlert(Document& document, const std::string& path);
    /// Returns whether an alert about the document is shown.
    bool isAlertUp(const OpenDocument& opened) const;
    /// Postpones a question or a report until no alert about the document is shown.
    void askLater(OpenDocument& opened);
    /// Calls `show`, which shows an alert about the document. The document may be closed by it.
    void whileAlertIsUp(const Document& document, const std::function<void()>& show);
    /// Shows the alert and returns the response.
    int ask(const Alert& alert);
    /// Shows the alert about a failed save.
    void failedSaveAlert(const Document& document, const std::string& path, const Error& error);
    /// Returns what is done with the document's file. Asks only if another program has changed it.
    FileAnswer askAboutFile(const Document& document, Before before);
    /// Asks once, about a file that was changed or, if `isThere` is false, is missing.
    FileAnswer chooseForFile(const Document& document, bool isThere, Before before);
    enum class RevertTo { UsersVersion, File };
    /// Asks whether to revert, and returns the source; `nullopt` if the user cancels.
    std::optional<RevertTo> askToRevert(const Document& document);
    /// Reads the document from its file again. Returns false, after an alert, if that fails.
    bool revertToContentsOfURL(Document& document);
    /// Restores the document and its file from the revert point, or as `revertToContentsOfURL` does if its
    /// copy is missing. Returns false, after an alert, if that fails.
    bool revertToUsersVersion(Document& document);
    /// Replaces the tree by that of `bytes`. Returns false, after an alert, if that fails.
    bool showReverted(Document& document, const Result<std::string>& bytes);
    /// Stores the identity of the document's file.
    void noteFile(Document& document);
    /// Returns another open document with the file at `path`, or `nullptr`.
    const Document* otherDocumentOfFile(const Document& document, const std::string& path) const;
    /// Called after each change of the document; begins the pause before an automatic save.
    void noteChange(OpenDocument& opened);
    /// Begins the pause, which is longer for a document that takes long to save.
    void startAutosaveTimer(OpenDocument& opened);
    /// Ends the pause: saves the document, or begins another pause if there were further changes.
    void autosaveTimerFired(OpenDocument& opened);
    /// Saves a document that has changes, to its file or to a copy.
    void autosave(OpenDocument& opened, Moment moment);
    /// Ends editing in every window and saves every document that has changes.
    void autosaveAll(Moment moment);
    /// Calls `save` and stores how long it took.
    Result<void> timed(OpenDocument& opened, const std::function<Result<void>()>& save);
    /// Saves a document to its file, or to a copy if the file cannot be written or was changed.
    void autosaveFile(OpenDocument& opened, Moment moment);
    /// Saves a document whose file another program has changed to a copy, and asks what is done with the
    /// file.
    void autosaveBesideFile(OpenDocument& opened, const std::optional<FileIdentity>& identity, Moment moment);
    /// Reports a failed automatic save, unless the user knows of it.
    void noteAutosave(OpenDocument& opened, std::string_view failureKey, const Result<void>& saved);
    /// Opens one copy, or adds it to `refusals`.
    void recover(const UnsavedDocuments::Copy& copy, Refusals& refusals);
    /// Saves the document, or asks about it. Calls `done` with whether it may be closed.
    void askToSave(Document& document, const Done& done);
    /// Does so for a document with a file.
    void saveBeforeClosing(Document& document, const Done& done);
    /// Asks what is done with a document that could not be saved before it is closed.
    void askAfterFailedSave(Document& document, const Error& error, const Done& done);
    /// Calls `askToSave` for the pending documents and for those that are changed meanwhile; then `done`.
    void reviewFrom(std::vector<Document*> pending, const Done& done);
    /// Returns the documents whose changes have not been saved or given up.
    std::vector<Document*> documentsToReview() const;

    const Platform platform_;
    DocumentWindowMaker& windows_;
    LastDocumentObserver& observer_;
    /// Shared by all document windows.
    SharedState shared_;
    RecentDocuments recentDocuments_;
    UnsavedDocuments unsaved_;
    RevertPoints revertPoints_;
    VersionStore versions_;
    ActionTable actions_;
    std::vector<std::unique_ptr<OpenDocument>> documents_;
    /// `nullptr` if no document is open.
    Document* current_ = nullptr;
    /// `nullptr` for none. Only compared, never read.
    const Document* untouched_ = nullptr;
    std::map<const Document*, long> givenUp_; // change counts at which the user gave them up
    bool asking_ = false;                     // a question about a document's file is shown
};

} // namespace tabulon
