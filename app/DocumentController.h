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

    void addActions();
    void addWindowActions();
    OpenDocument* find(const Document& document) const;
    Document* makeWindowControllers(std::unique_ptr<OpenDocument> opened);
    void remove(const Document& document);
    void saveFrameUsingName(const OpenDocument& opened);
    void restoreWindowFrame(const OpenDocument& opened);
    Result<void> write(Document& document, const std::string& path);
    Result<void> writeByItself(Document& document);
    Result<void> writeBytes(Document& document, const std::string& path, const std::string& bytes);
    bool writeOrAlert(Document& document, const std::string& path);
    bool isAlertUp(const OpenDocument& opened) const;
    void askLater(OpenDocument& opened);
    void whileAlertIsUp(const Document& document, const std::function<void()>& show);
    int ask(const Alert& alert);
    void failedSaveAlert(const Document& document, const std::string& path, const Error& error);
    FileAnswer askAboutFile(const Document& document, Before before);
    FileAnswer chooseForFile(const Document& document, bool isThere, Before before);
    enum class RevertTo { UsersVersion, File };
    std::optional<RevertTo> askToRevert(const Document& document);
    bool revertToContentsOfURL(Document& document);
    bool revertToUsersVersion(Document& document);
    bool showReverted(Document& document, const Result<std::string>& bytes);
    void noteFile(Document& document);
    const Document* otherDocumentOfFile(const Document& document, const std::string& path) const;
    void noteChange(OpenDocument& opened);
    void startAutosaveTimer(OpenDocument& opened);
    void autosaveTimerFired(OpenDocument& opened);
    void autosave(OpenDocument& opened, Moment moment);
    void autosaveAll(Moment moment);
    Result<void> timed(OpenDocument& opened, const std::function<Result<void>()>& save);
    void autosaveFile(OpenDocument& opened, Moment moment);
    void autosaveBesideFile(OpenDocument& opened, const std::optional<FileIdentity>& identity, Moment moment);
    void noteAutosave(OpenDocument& opened, std::string_view failureKey, const Result<void>& saved);
    void recover(const UnsavedDocuments::Copy& copy, Refusals& refusals);
    void askToSave(Document& document, const Done& done);
    void saveBeforeClosing(Document& document, const Done& done);
    void askAfterFailedSave(Document& document, const Error& error, const Done& done);
    void reviewFrom(std::vector<Document*> pending, const Done& done);
    std::vector<Document*> documentsToReview() const;

    const Platform platform_;
    DocumentWindowMaker& windows_;
    LastDocumentObserver& observer_;
    SharedState shared_;
    RecentDocuments recentDocuments_;
    UnsavedDocuments unsaved_;
    RevertPoints revertPoints_;
    VersionStore versions_;
    ActionTable actions_;
    std::vector<std::unique_ptr<OpenDocument>> documents_;
    Document* current_ = nullptr;
    const Document* untouched_ = nullptr;
    std::map<const Document*, long> givenUp_; // change counts at which the user gave them up
    bool asking_ = false;                     // a question about a document's file is shown
};

} // namespace tabulon
