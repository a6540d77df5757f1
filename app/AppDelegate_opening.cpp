// Opening files of every kind, and the steps that all imports share.
#include "app/AppDelegate.h"
#include "app/FileContent.h"
#include "app/SharedAlerts.h"

namespace tabulon {

bool AppDelegate::openFile(const std::string& path) {
    if (documentController_.showDocumentOfFile(path))
        return true;
    const auto identity = platform_.files.identityOf(path);
    const Result<std::string> bytes = platform_.files.readFile(path);
    if (!bytes) {
        documentController_.recentDocuments().forget(path);
        fileErrorAlert(platform_, "CouldNotOpen", path, bytes.error());
        return false;
    }
    switch (contentOfFile(*bytes, path)) {
    case FileContent::BookmarkDocument:
        if (!documentController_.openDocument(path, *bytes, identity))
            return false;
        break;
    case FileContent::BookmarkHTML:
        if (!openBookmarkHTML(path, *bytes))
            return false;
        break;
    case FileContent::Unknown:
        fileErrorAlert(platform_, "CouldNotOpen", path,
                       Error{.message = platform_.base.texts.text("UnknownFile")});
        return false;
    }
    documentController_.closeUntouchedDocument();
    return true;
}

bool AppDelegate::openBookmarkHTML(const std::string& path, std::string_view bytes) {
    Document* document = scanNetscape(bytes);
    if (!document)
        return false;
    document->setDisplayName(nameWithoutExtension(path));
    documentController_.recentDocuments().note(path);
    return true;
}

void AppDelegate::openDocumentPanel() {
    const Localization& texts = platform_.base.texts;
    const OpenPanel panel{
        .message = texts.text("OpenFile"),
        .prompt = texts.text("Open"),
        .kinds = {{texts.text("BookmarkFiles"), {std::string(kDocumentExtension), "html", "htm"}}},
        .allowsMultipleSelection = true,
        .document = documentController_.currentDocument()};
    platform_.panels.beginOpenPanel(panel,
                                    [this](const std::vector<std::string>& paths) { openFiles(paths); });
}

void AppDelegate::openFiles(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        openFile(path);
    if (documentController_.documents().empty() && stop)
        stop();
}

// While the HTML flag is set, panels enable HTML files.
std::vector<FileKind> AppDelegate::kindsThatPanelsEnable() const {
    std::vector<FileKind> kinds;
    if (htmlFlag_)
        kinds.push_back({platform_.base.texts.text("BookmarkHTMLFiles"), {"html", "htm"}});
    return kinds;
}

void AppDelegate::importBookmarks() {
    htmlFlag_ = true;
    const Localization& texts = platform_.base.texts;
    const OpenPanel panel{.message = texts.text("SelectBookmarks"),
                          .prompt = texts.text("Select"),
                          .kinds = kindsThatPanelsEnable(),
                          .document = documentController_.currentDocument()};
    platform_.panels.beginOpenPanel(panel, [this](const std::vector<std::string>& paths) {
        if (paths.empty())
            return;
        if (const Result<std::string> bytes = platform_.files.readFile(paths.front()))
            scanNetscape(*bytes);
    });
}

Document* AppDelegate::scanNetscape(std::string_view bytes) {
    const Ref<Bookmark> root = scanner_.scan(bytes, platform_.base);
    if (!root->hasChildren()) {
        noURLs(platform_);
        return nullptr;
    }
    return newMasterDocument(root);
}

Document* AppDelegate::newMasterDocument(Ref<Bookmark> root) {
    Document* document = documentController_.openUntitledDocumentAndDisplay();
    if (!document)
        return nullptr;
    root->setShowHier(true);
    document->setMaster(std::move(root));
    document->updateUI();
    document->updateChangeCount(ChangeKind::Done);
    return document;
}

} // namespace tabulon
