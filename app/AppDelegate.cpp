// Construction, start and end.
#include "app/AppDelegate.h"

#include "app/SharedAlerts.h"

namespace tabulon {
namespace {

constexpr int kToolTipDelay = 10; // milliseconds

} // namespace

AppDelegate::AppDelegate(const Platform& platform, DocumentWindowMaker& windows, std::string version)
    : platform_(platform), version_(std::move(version)), documentController_(platform, windows) {
    addActions();
    documentController_.lastDocumentClosed = [this] {
        if (stop)
            stop();
    };
}

void AppDelegate::applicationDidFinishLaunching(const std::vector<std::string>& paths) {
    platform_.base.defaults.setIntegerForKey("NSInitialToolTipDelay", kToolTipDelay);
    documentController_.recoverUnsavedDocuments();
    for (const std::string& path : paths)
        openFile(path);
    if (!documentController_.documents().empty())
        return;
    if (!applicationShouldOpenUntitledFile())
        return openDocumentPanel();
    if (documentController_.openUntitledDocumentAndDisplay())
        documentController_.noteUntouchedDocument();
    else if (stop)
        stop();
}

bool AppDelegate::applicationShouldOpenUntitledFile() const {
    const UserDefaults& defaults = platform_.base.defaults;
    return !defaults.stringForKey("OpenUntitled") || defaults.boolForKey("OpenUntitled");
}

void AppDelegate::sessionWillEnd() {
    documentController_.autosaveAllDocuments();
    if (stop)
        stop();
}

void AppDelegate::terminate() {
    if (terminating_)
        return;
    if (documentController_.documents().empty() && stop)
        return stop();
    terminating_ = true;
    documentController_.closeAllDocuments([this](bool) { terminating_ = false; });
}

void AppDelegate::showAboutPanel() {
    informationAlert(platform_, "Tabulon", platform_.base.texts.format("AboutText", version_));
}

} // namespace tabulon
