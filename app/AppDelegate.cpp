// Construction, start and end.
#include "app/AppDelegate.h"

#include "base/Settings.h"
#include "window/SharedAlerts.h"

namespace tabulon {
namespace {

constexpr int kToolTipDelay = 10; // milliseconds

} // namespace

AppDelegate::AppDelegate(const Platform& platform, DocumentWindowMaker& windows, SingleInstance& instance,
                         ProgramHost& host, std::string version)
    : platform_(platform), host_(host), version_(std::move(version)),
      documentController_(platform, windows, *this, *this), importCommands_(platform, documentController_),
      requestQueue_(*this, instance, platform.timers),
      fileOpening_(platform, documentController_, importCommands_, requestQueue_, *this),
      mainMenu_(platform, documentController_),
      responders_(documentController_, {&actions_, &fileOpening_.actions(), &importCommands_.actions()}) {
    addActions();
}

void AppDelegate::addActions() {
    actions_.add("newDocument:",
                 [this](const MenuItem&) { documentController_.openUntitledDocumentAndDisplay(); });
    actions_.add("terminate:", [this](const MenuItem&) { terminate(); });
    actions_.add("connectBrowsers:", [this](const MenuItem&) { host_.showBrowserConnections(); });
    actions_.add("orderFrontStandardAboutPanel:", [this](const MenuItem&) { showAboutPanel(); });
}

void AppDelegate::applicationDidFinishLaunching(const std::vector<std::string>& locations) {
    perform({.kind = LaunchRequest::Kind::Open, .uris = locations});
}

void AppDelegate::performRequest(const LaunchRequest& request) {
    host_.willPerform(request);
    perform(request);
    host_.didPerform(request, documentController_.currentDocument());
}

// The first request starts the program: it opens the copies that an earlier run has left, and what the
// request names. Later ones open files or a new document, or bring the current one to the front. If no
// document is open then, an untitled one is opened, or the open panel is shown. While more requests wait, the
// alert about refused files and the front window are left to the last one. After the end of the session no
// request is performed.
void AppDelegate::perform(const LaunchRequest& request) {
    if (ended_)
        return;
    const bool isFirst = !launched_;
    if (isFirst)
        startUp();
    switch (request.kind) {
    case LaunchRequest::Kind::Activate:
        break;
    case LaunchRequest::Kind::Open:
        for (const std::string& location : request.uris)
            fileOpening_.open(location);
        break;
    case LaunchRequest::Kind::NewDocument:
        documentController_.openUntitledDocumentAndDisplay();
        break;
    }
    if (!requestQueue_.hasMore())
        fileOpening_.reportRefusals();
    if (ended_ || requestQueue_.hasMore()) // these may have changed while the alert was shown
        return;
    if (documentController_.documents().empty())
        openWithoutRequest();
    else if (!isFirst)
        bringCurrentDocumentToFront();
}

void AppDelegate::noDocumentIsOpen() {
    if (!requestQueue_.hasMore())
        host_.stop();
}

void AppDelegate::startUp() {
    launched_ = true;
    setValue(platform_.base.defaults, settings::kToolTipDelay, kToolTipDelay);
    documentController_.recoverUnsavedDocuments();
}

void AppDelegate::openWithoutRequest() {
    if (!applicationShouldOpenUntitledFile())
        return fileOpening_.openDocumentPanel();
    if (documentController_.openUntitledDocumentAndDisplay())
        documentController_.noteUntouchedDocument();
    else
        host_.stop();
}

void AppDelegate::bringCurrentDocumentToFront() {
    const Document* current = documentController_.currentDocument();
    if (ViewController* controller = current ? documentController_.getViewController(*current) : nullptr)
        controller->window().getWindow()->makeKeyAndOrderFront();
}

bool AppDelegate::applicationShouldOpenUntitledFile() const {
    const UserDefaults& defaults = platform_.base.defaults;
    return !hasValue(defaults, settings::kOpenUntitled) || valueOf(defaults, settings::kOpenUntitled);
}

void AppDelegate::sessionWillEnd() {
    ended_ = true;
    documentController_.autosaveAllDocumentsForTheEnd();
    host_.stop();
}

void AppDelegate::end() {
    ended_ = true;
    host_.stop();
}

void AppDelegate::terminate() {
    if (terminating_)
        return;
    if (platform_.alerts.isAskingAbout(nullptr)) // the alert has to be answered first
        return platform_.beeper.beep();
    if (documentController_.documents().empty())
        return end();
    terminating_ = true;
    documentController_.closeAllDocuments([this](bool closed) {
        terminating_ = false;
        if (closed &&
            requestQueue_
                .hasMore()) // closing the last document does not stop the program while requests wait
            end();
    });
}

void AppDelegate::showAboutPanel() {
    informationAlert(platform_, "Tabulon", platform_.base.texts.format("AboutText", version_));
}

} // namespace tabulon
