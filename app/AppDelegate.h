// The application: the one object that lives for the whole run. Start and end, and opening files of every
// kind (_opening). Documents and their windows are DocumentController's, the menus MainMenu's and
// ResponderChain's, imports ImportCommands'.
#pragma once

#include "app/DocumentController.h"
#include "app/ImportCommands.h"
#include "app/MainMenu.h"
#include "app/Refusals.h"
#include "app/ResponderChain.h"
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

    // Marks of links

    /// The setting "ShowMarks" has changed: every window shows its rows accordingly, and so does the menu.
    void showMarks(bool shown);

    // Its parts

    ImportCommands& importCommands() { return importCommands_; }
    const MainMenu& mainMenu() const { return mainMenu_; }
    const ResponderChain& responders() const { return responders_; }

private:
    void addActions();
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

    const Platform platform_;
    const std::string version_;
    DocumentController documentController_;
    ImportCommands importCommands_;
    ActionTable actions_;
    MainMenu mainMenu_;
    ResponderChain responders_;
    Refusals refusals_;
    bool launched_ = false;
    bool ended_ = false;
    bool openPanelIsShown_ = false;
    bool terminating_ = false;
};

} // namespace tabulon
