// The open documents: making, opening, saving and closing them, each with its outline controller and its
// window. What the files hold besides documents, and the menus, are the application delegate's.
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

/// Makes the window of a document. Null when there can be none.
class DocumentWindowMaker {
public:
    virtual ~DocumentWindowMaker() = default;
    /// The window may use the controller as long as it lives; it is not shown yet.
    virtual std::unique_ptr<DocumentWindow> makeWindow(ViewController& controller) = 0;

    /// Shows the panel of the document's versions in its window and returns at once. The panel calls
    /// `setPanel` when it comes up and when it goes; it goes with the window.
    virtual void presentVersions(std::shared_ptr<VersionsController> controller) = 0;
};

/// Learns that the program may have nothing left to do.
class LastDocumentObserver {
public:
    virtual ~LastDocumentObserver() = default;
    /// Called after the last document was closed, and after an open panel closed while no document is open.
    virtual void noDocumentIsOpen() = 0;
};

/// Paths are absolute and in the file system's encoding.
class DocumentController {
public:
    /// Told whether the work was done: false when the user cancelled or it failed (and the user was told).
    using Done = std::function<void(bool done)>;

    /// What is passed in must outlive this object.
    DocumentController(const Platform& platform, DocumentWindowMaker& windows, LastDocumentObserver& observer,
                       SharedCommands& commands);
    ~DocumentController();

    /// saveDocument:, saveDocumentAs:, revertDocumentToSaved:, browseVersions:, performClose:,
    /// performMiniaturize:, all for the current document; makeKeyAndOrderFront: for the document that the
    /// item stands for.
    const ActionTable& actions() const { return actions_; }

    /// In the order in which they were opened.
    std::vector<Document*> documents() const;
    /// The window of `document`, or null for one that is not open.
    DocumentWindow* getWindow(const Document& document) const;
    /// The outline controller that shows `document`, or null for one that is not open.
    ViewController* getViewController(const Document& document) const;
    /// The document whose window has, or had last, the user's attention; null without documents.
    Document* currentDocument() const { return current_; }
    void windowDidBecomeKey(Document& document) { current_ = &document; }

    /// A new empty document in a window. Null when no window can be made.
    Document* openUntitledDocumentAndDisplay();
    /// Marks the newest document as one that nobody asked for: it goes when a file is opened while it is
    /// untouched.
    void noteUntouchedDocument() { untouched_ = current_; }
    void closeUntouchedDocument();

    /// Opens the document with the content `bytes` of the file at `path` in a window; null when there can be
    /// none. Fails with the error of the reader, opens nothing and shows no alert.
    /// `identity` is how the file was just before it was read.
    Result<Document*> openDocument(const std::string& path, std::string_view bytes,
                                   const std::optional<FileIdentity>& identity);
    /// Opens a tree as a new untitled, changed document of that name. Null when no window can be made.
    Document* openUntitled(const Ref<Bookmark>& root, const std::string& name);
    /// Opens `root`, which its maker named "Master", as a new untitled, changed document with the usual
    /// title. Returns `nullptr` when no window can be made.
    Document* newMasterDocument(Ref<Bookmark> root);
    /// What the alert about a damaged document offers: to open what is left of these bytes as an untitled
    /// document of that name. Nullopt where they could not be read or hold no bookmark any more.
    std::optional<Refusals::Offer> offerRemains(const Result<std::string>& bytes, const std::string& name);
    /// Brings the window of the file to the front, whatever path it was opened by; false when it is not open.
    bool showDocumentOfFile(const std::string& path);

    /// When another program has changed, moved or removed the file since it was read or written here, the
    /// user decides first what becomes of it.
    void saveDocument(Document& document, const Done& done);
    void saveDocumentAs(Document& document, const Done& done);
    /// Whether the document differs from what it was when the user opened it or last saved it himself.
    bool canRevert(const Document& document) const;
    /// Goes back, after a question, to what the document was when the user opened it or last saved it
    /// himself; a save that the program made by itself since is taken back in the file, too. A file that
    /// another program changed is read as that left it. Requires a document with a file.
    void revertDocument(Document& document);

    /// Shows the versions of a document with a file, or, without one, does nothing.
    void browseVersions(Document& document);

    /// A document with a file is saved first; one without is asked about when it has changes.
    void closeDocument(Document& document, const Done& done);
    /// Saves, or asks about, each document with unsaved changes; only when nothing was cancelled all are
    /// closed.
    void closeAllDocuments(const Done& done);

    // Saving by itself: a few seconds after the last change, and at moments that the application knows.

    /// How long after a change a document is saved, in seconds, and how often further changes put that off.
    static constexpr double kAutosavePause = 3;
    static constexpr int kMostPostponements = 9;
    /// Saves every document that has changes, those without a file to their copies. Asks nothing: a document
    /// goes to a copy as well when another program has changed its file or the file cannot be written.
    void autosaveAllDocuments();
    /// The same for the end of the session, which nothing should hold up: a failure is told only where there
    /// is no copy either.
    void autosaveAllDocumentsForTheEnd();
    /// Opens the copies that an earlier run left behind, each untitled and with changes.
    void recoverUnsavedDocuments();

    /// Shows the rows of every window as the setting "ShowMarks" says.
    void showMarksInEveryWindow();

    RecentDocuments& recentDocuments() { return recentDocuments_; }
    VersionStore& versions() { return versions_; }

private:
    /// When a document is saved by itself, and what the user was told about that already.
    struct Autosave {
        std::unique_ptr<Timer> timer;
        bool changedSinceStart = false;
        int postponements = 0;
        double lastSeconds = 0; // that saving took
        bool failureTold = false;
        bool asked = false;
        bool deferred = false; // something is left to do or to tell when no alert is up any more
        std::optional<FileIdentity> askedAbout; // the state of the file, where `asked`
    };
    /// After a pause questions may be asked, at the end not even failures are told that lose nothing.
    enum class Moment { Pause, Deactivation, End };

    struct OpenDocument {
        explicit OpenDocument(const BaseServices& services) : document(services) {}

        // The order matters: the window goes before its controller, the controller before its document.
        Document document;
        /// How the file was when it was read or written last.
        std::optional<FileIdentity> identity;
        Autosave autosave;
        int alertsUp = 0; // that are about this document
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
    std::map<const Document*, long> givenUp_; // whose changes may be lost, with their number
    bool asking_ = false;                     // the question about a document's file is up
};

} // namespace tabulon
