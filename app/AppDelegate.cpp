// Construction, start and end.
#include "app/AppDelegate.h"

#include "window/SharedAlerts.h"

namespace tabulon {
namespace {

constexpr int kToolTipDelay = 10; // milliseconds

} // namespace

AppDelegate::AppDelegate(const Platform& platform, DocumentWindowMaker& windows, std::string version)
    : platform_(platform), version_(std::move(version)), documentController_(platform, windows),
      importCommands_(platform, documentController_), mainMenu_(platform, documentController_),
      responders_(documentController_, {&actions_, &importCommands_.actions()}) {
    addActions();
    documentController_.shared().grabAllHTML = [this](const std::string& html) {
        importCommands_.grabAllHTML(html);
    };
    documentController_.shared().showMarks = [this](bool shown) { showMarks(shown); };
    documentController_.lastDocumentClosed = [this] {
        if (stop && !opensMore())
            stop();
    };
}

void AppDelegate::addActions() {
    actions_.add("newDocument:",
                 [this](const MenuItem&) { documentController_.openUntitledDocumentAndDisplay(); });
    actions_.add("openDocument:", [this](const MenuItem&) { openDocumentPanel(); });
    actions_.add("openRecentDocument:", [this](const MenuItem& sender) {
        if (const auto* path = std::get_if<std::string>(&sender.representedObject))
            openFile(*path);
    });
    actions_.add(
        "clearRecentDocuments:", [this](const MenuItem&) { documentController_.recentDocuments().clear(); },
        [this](const MenuItem&) { return !documentController_.recentDocuments().paths().empty(); });
    actions_.add("terminate:", [this](const MenuItem&) { terminate(); });
    actions_.add("orderFrontStandardAboutPanel:", [this](const MenuItem&) { showAboutPanel(); });
}

// The menu is built when it is opened, with its check mark.
void AppDelegate::showMarks(bool /*shown*/) {
    for (const Document* document : documentController_.documents())
        if (ViewController* controller = documentController_.getViewController(*document))
            controller->marks().showMarksView();
}

void AppDelegate::applicationDidFinishLaunching(const std::vector<std::string>& locations) {
    performRequest({.kind = LaunchRequest::Kind::Open, .uris = locations});
}

bool AppDelegate::opensMore() const {
    return willOpenMore && willOpenMore();
}

void AppDelegate::performRequest(const LaunchRequest& request) {
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
            open(location);
        break;
    case LaunchRequest::Kind::NewDocument:
        documentController_.openUntitledDocumentAndDisplay();
        break;
    }
    if (!opensMore())
        refusals_.tell(platform_);
    if (ended_ || opensMore()) // the alert waited for its answer
        return;
    if (documentController_.documents().empty())
        openWithoutRequest();
    else if (!isFirst)
        bringCurrentDocumentToFront();
}

void AppDelegate::startUp() {
    launched_ = true;
    platform_.base.defaults.setIntegerForKey("NSInitialToolTipDelay", kToolTipDelay);
    documentController_.recoverUnsavedDocuments();
}

void AppDelegate::openWithoutRequest() {
    if (!applicationShouldOpenUntitledFile())
        return openDocumentPanel();
    if (documentController_.openUntitledDocumentAndDisplay())
        documentController_.noteUntouchedDocument();
    else if (stop)
        stop();
}

void AppDelegate::bringCurrentDocumentToFront() {
    const Document* current = documentController_.currentDocument();
    if (ViewController* controller = current ? documentController_.getViewController(*current) : nullptr)
        controller->window().getWindow()->makeKeyAndOrderFront();
}

bool AppDelegate::applicationShouldOpenUntitledFile() const {
    const UserDefaults& defaults = platform_.base.defaults;
    return !defaults.stringForKey("OpenUntitled") || defaults.boolForKey("OpenUntitled");
}

void AppDelegate::sessionWillEnd() {
    ended_ = true;
    documentController_.autosaveAllDocumentsForTheEnd();
    if (stop)
        stop();
}

void AppDelegate::end() {
    ended_ = true;
    if (stop)
        stop();
}

void AppDelegate::terminate() {
    if (terminating_)
        return;
    if (platform_.alerts.isAskingAbout(nullptr)) // it waits for its answer first
        return platform_.beeper.beep();
    if (documentController_.documents().empty())
        return end();
    terminating_ = true;
    documentController_.closeAllDocuments([this](bool closed) {
        terminating_ = false;
        if (closed && opensMore()) // what was to be opened has kept the last document from ending the program
            end();
    });
}

void AppDelegate::showAboutPanel() {
    informationAlert(platform_, "Tabulon", platform_.base.texts.format("AboutText", version_));
}

} // namespace tabulon
