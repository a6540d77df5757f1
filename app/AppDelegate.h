// The application: the one object that lives for the whole run. Start and end, the menus, opening files of
// every kind, importing. Split by concern: _importing, _menus, _opening. Documents and their windows are
// DocumentController's.
#pragma once

#include "app/DocumentController.h"
#include "app/Refusals.h"
#include "formats/ImportFormats.h"
#include "platform/Platform.h"
#include "platform/SingleInstance.h"
#include "window/ActionTable.h"
#include "window/Menu.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Paths are absolute and in the file system's encoding.
class AppDelegate {
public:
    /// `version` is shown to people. What is handed in must live longer.
    AppDelegate(const Platform& platform, DocumentWindowMaker& windows, std::string version);

    DocumentController& documentController() { return documentController_; }

    // Start and end

    /// The first request starts the program: it opens what an earlier run could not save and what the request
    /// names. Later ones open files or a new document, or bring the current one to the front. When there is
    /// no document then, an untitled one comes up if `applicationShouldOpenUntitledFile` says so, else the
    /// open panel; cancelling that ends the program.
    /// While `willOpenMore` says so, what could not be opened is told, and windows are brought to the front,
    /// with the last request alone. Nothing is done after the end of the session.
    void performRequest(const LaunchRequest& request);
    /// The first request: the files at these paths or URIs, or none.
    void applicationDidFinishLaunching(const std::vector<std::string>& locations);
    /// The setting "OpenUntitled", YES where it has no value.
    bool applicationShouldOpenUntitledFile() const;
    /// Another program comes to the front: what has changes is saved.
    void applicationWillResignActive() { documentController_.autosaveAllDocuments(); }
    /// The session ends, or the system ends the program: saves what has changes and ends without a question.
    /// Documents without a file are there again at the next start.
    void sessionWillEnd();
    /// Closes everything, asking about unsaved changes, and ends the program unless the user cancels, also
    /// where it is about to open more.
    void terminate();
    /// Ends the program's main loop; called once, after the last document was closed.
    std::function<void()> stop;
    /// True when something is about to be opened: closing the last document does not end the program then.
    std::function<bool()> willOpenMore;
    /// Opens files one by one from the main loop, by requests to `performRequest`. Where it is not set,
    /// `openFiles` opens them before it returns.
    std::function<void(const std::vector<std::string>& locations)> openSoon;

    // Opening

    /// Opens bookmark documents, and bookmark files of other programs and pages as untitled documents named
    /// after them, told apart by content, then by extension; paths or URIs. A file that is open already,
    /// under whatever path, comes to the front. One alert lists the files that could not be opened.
    void openFiles(const std::vector<std::string>& locations);
    /// The same for one file. True when there is a window for it now.
    bool openFile(const std::string& location);
    /// Whether there is a file that `openFile` would try to open, or one that is called like a document and
    /// cannot be read; not one that holds a single link.
    bool canOpen(const std::string& location);
    void openDocumentPanel();

    // Importing

    /// Shows the panel of a format and imports the file chosen there.
    void beginImport(const ImportFormat& format);
    /// Imports one file into a new document, or tells what the format tells of a file that is none of its.
    void importFile(const ImportFormat& format, const std::string& path);
    /// Scans a Netscape bookmark file into a new document; an alert tells when nothing was found in it.
    Document* scanNetscape(std::string_view bytes, const std::string& source = {});
    /// Scans any text for links into a new document; an alert tells when there were none.
    Document* scanTextData(std::string_view bytes);
    /// The links of a page that was copied, in a new document; null when there can be none.
    Document* grabAllHTML(const std::string& html);
    /// What the user has copied: a page where it looks like one, else a text. Nothing without a text.
    void scanClipboard();
    /// A new untitled, changed document with `root` (named "Master" by whoever made it) as its tree, in a
    /// window. Null when there can be none.
    Document* newMasterDocument(Ref<Bookmark> root);

    // Marks of links

    /// The setting "ShowMarks" has changed: every window shows its rows accordingly, and so does the menu.
    void showMarks(bool shown);

    // Menus

    /// The main menu as it is to be shown now.
    Menu mainMenu();
    /// Whether the item can be chosen now: asks the current window's outline controller, then the documents,
    /// then the application; an item that only holds a submenu can.
    bool validateMenuItem(const MenuItem& item) const;
    /// Runs the item's action on the first of them that has it, if it is enabled. False when none does.
    bool performMenuItem(const MenuItem& item);

private:
    void addActions();
    void addImportActions();
    const ActionTable* responderTo(std::string_view action) const;
    bool opensMore() const;
    void startUp();
    void end();
    void openWithoutRequest();
    void bringCurrentDocumentToFront();
    bool open(const std::string& location);
    bool openContent(const std::string& path);
    bool openDocument(const std::string& path, std::string_view bytes,
                      const std::optional<FileIdentity>& identity);
    bool openImported(const ImportFormat& format, const std::string& path, std::string_view bytes);
    Error missingFile(const std::string& path, const Error& error);
    void showAboutPanel();
    std::vector<FileKind> kindsThatPanelsEnable() const;
    void importFailureAlert(const ImportFormat& format, const std::string& path, const Error& error);
    std::unique_ptr<Progress> beginImporting(const std::string& source);
    Result<Ref<Bookmark>> read(const ImportFormat& format, std::string_view bytes, const std::string& source);
    Document* scan(const ImportFormat& format, std::string_view bytes, const std::string& source);
    Document* showImported(const ImportFormat& format, Ref<Bookmark> root);
    void firefoxAlert();
    Menu fileMenu();
    Menu recentMenu();
    Menu editMenu() const;
    Menu viewMenu() const;
    Menu bookmarkMenu() const;
    Menu labelMenu() const;
    Menu sortMenu() const;
    Menu cleanUpMenu() const;
    Menu importMenu();
    Menu windowMenu() const;
    Menu helpMenu() const;
    MenuItem command(std::string_view titleKey, std::string action, std::string keyEquivalent = {},
                     KeyModifiers modifiers = {}) const;
    MenuItem submenu(std::string_view titleKey, Menu menu) const;

    const Platform platform_;
    const std::string version_;
    DocumentController documentController_;
    ActionTable actions_;
    NetscapeScanner scanner_;
    std::set<PanelFilter> panelFilters_;
    Refusals refusals_;
    bool launched_ = false;
    bool ended_ = false;
    bool openPanelIsShown_ = false;
    bool terminating_ = false;
};

} // namespace tabulon
