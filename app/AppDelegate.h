// The application: the one object that lives for the whole run. It is composed of the documents, the menus,
// and what opens and imports files, and it decides how the program starts and ends.
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

class AppDelegate : private RequestPerformer, private LastDocumentObserver, private SharedCommands {
public:
    /// Performs the requests that reach `instance`. `version` is shown to the user. What is passed in must
    /// outlive this object.
    AppDelegate(const Platform& platform, DocumentWindowMaker& windows, SingleInstance& instance,
                ProgramHost& host, std::string version);

    // Its parts

    DocumentController& documentController() { return documentController_; }
    FileOpening& fileOpening() { return fileOpening_; }
    ImportCommands& importCommands() { return importCommands_; }
    RequestQueue& requestQueue() { return requestQueue_; }
    const MainMenu& mainMenu() const { return mainMenu_; }
    const ResponderChain& responders() const { return responders_; }

    // Start and end

    /// Starts the program with the files at these paths or URIs, or none.
    void applicationDidFinishLaunching(const std::vector<std::string>& locations);
    /// Returns the setting "OpenUntitled", true when it has no value.
    bool applicationShouldOpenUntitledFile() const;
    /// Saves what has changes, because another program comes to the front.
    void applicationWillResignActive() { documentController_.autosaveAllDocuments(); }
    /// Saves what has changes and ends without a question, because the session ends or the system ends the
    /// program. Documents without a file are opened again by the next start.
    void sessionWillEnd();
    /// Closes everything, asking about unsaved changes, and ends the program unless the user cancels, also
    /// when it is about to open more.
    void terminate();

private:
    bool mustWait() const override { return host_.mustWait(); }
    void performRequest(const LaunchRequest& request) override;
    void noDocumentIsOpen() override;
    void grabAllHTML(const std::string& html) override { importCommands_.grabAllHTML(html); }
    void showMarks(bool /*shown*/) override { documentController_.showMarksInEveryWindow(); }

    void addActions();
    void perform(const LaunchRequest& request);
    void startUp();
    void end();
    void openWithoutRequest();
    void bringCurrentDocumentToFront();
    void showAboutPanel();

    const Platform platform_;
    ProgramHost& host_;
    const std::string version_;
    DocumentController documentController_;
    ImportCommands importCommands_;
    RequestQueue requestQueue_;
    FileOpening fileOpening_;
    ActionTable actions_;
    MainMenu mainMenu_;
    ResponderChain responders_;
    bool launched_ = false;
    bool ended_ = false;
    bool terminating_ = false;
};

} // namespace tabulon
