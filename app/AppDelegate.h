// The application: the one object that exists for the whole run. It is composed of the documents, the menus,
// and the classes that open and import files. It decides how the program starts and ends.
#pragma once

#include "app/DocumentController.h"
#include "app/FileOpening.h"
#include "app/ImportCommands.h"
#include "app/MainMenu.h"
#include "app/ProgramHost.h"
#include "app/RequestQueue.h"
#include "app/ResponderChain.h"
#include "platform/Platform.h"
#include "platform/SingleInstance.h"
#include "window/ActionTable.h"
#include "window/SharedState.h"

#include <string>
#include <vector>

namespace tabulon {

/// The application. One exists in each process.
class AppDelegate : private RequestPerformer, private LastDocumentObserver, private SharedCommands {
public:
    /// Performs the requests that reach `instance`. `version` is shown in the About panel. Requires: the
    /// arguments and the services of `platform` outlive this object.
    AppDelegate(const Platform& platform, DocumentWindowMaker& windows, SingleInstance& instance,
                ProgramHost& host, std::string version);

    // The parts. They exist as long as the application.

    DocumentController& documentController() { return documentController_; }
    FileOpening& fileOpening() { return fileOpening_; }
    RequestQueue& requestQueue() { return requestQueue_; }
    const MainMenu& mainMenu() const { return mainMenu_; }
    const ResponderChain& responders() const { return responders_; }

    // Start and end

    /// Starts the program: opens the copies of unsaved documents, then the files at these paths or URIs. If
    /// no document is open then, opens an untitled one, or shows the open panel, as the setting
    /// "OpenUntitled" says. Returns after an alert about files that could not be opened was closed.
    void applicationDidFinishLaunching(const std::vector<std::string>& locations);
    /// Returns the setting "OpenUntitled", or true if it has no value.
    bool applicationShouldOpenUntitledFile() const;
    /// Saves all documents with changes. Called when the user switches to another program.
    void applicationWillResignActive() { documentController_.autosaveAllDocuments(); }
    /// Saves all documents with changes and stops the program without a question. Documents without a file
    /// are saved to copies, which the next start opens. Called when the session ends or the system terminates
    /// the program.
    void sessionWillEnd();
    /// Closes all documents, with questions about unsaved changes, and stops the program unless the user
    /// cancels. Requests that have not been performed are dropped. Beeps, and does nothing, while an alert
    /// waits for its answer.
    void terminate();

private:
    bool mustWait() const override { return host_.mustWait(); }
    /// Performs a request, with what the desktop requires around it.
    void performRequest(const LaunchRequest& request) override;
    /// Stops the program, unless requests wait.
    void noDocumentIsOpen() override;
    void grabAllHTML(const std::string& html) override { importCommands_.grabAllHTML(html); }
    /// The setting is the same for all windows, so all of them are drawn again.
    void showMarks(bool /*shown*/) override { documentController_.showMarksInEveryWindow(); }

    /// Adds the actions newDocument:, terminate:, connectBrowsers: and orderFrontStandardAboutPanel: to the
    /// table.
    void addActions();
    /// Performs a request, the first one as the start of the program.
    void perform(const LaunchRequest& request);
    /// Runs once, before the first request.
    void startUp();
    /// Stops the program.
    void end();
    /// Opens an untitled document or shows the open panel. Stops the program if no window can be made.
    void openWithoutRequest();
    /// Brings the window of the current document to the front, if there is one.
    void bringCurrentDocumentToFront();
    /// Shows the program's name and version.
    void showAboutPanel();

    const Platform platform_;
    ProgramHost& host_;
    const std::string version_;
    /// Each part refers to parts before it, so the order of the members is that of their construction.
    DocumentController documentController_;
    ImportCommands importCommands_;
    RequestQueue requestQueue_;
    FileOpening fileOpening_;
    ActionTable actions_;
    MainMenu mainMenu_;
    ResponderChain responders_;
    /// Whether `startUp` has run.
    bool launched_ = false;
    /// Whether the program stops. Requests are not performed then.
    bool ended_ = false;
    /// Whether `terminate` is asking about documents.
    bool terminating_ = false;
};

} // namespace tabulon
