// Opening files of every kind.
#include "app/AppDelegate.h"
#include "app/FileContent.h"
#include "window/FileUri.h"
#include "window/SharedAlerts.h"

#include <cerrno>
#include <filesystem>

namespace tabulon {
namespace {

// Nothing for what is no file of this computer.
std::optional<std::string> pathOf(const std::string& location) {
    std::optional<std::string> path =
        location.starts_with('/') ? std::optional(location) : pathOfFileUri(location);
    while (path && path->size() > 1 && path->ends_with('/'))
        path->pop_back();
    return path;
}

} // namespace

bool AppDelegate::openFile(const std::string& location) {
    const bool opened = open(location);
    refusals_.tell(platform_);
    return opened;
}

void AppDelegate::openFiles(const std::vector<std::string>& locations) {
    if (openSoon)
        return openSoon(locations);
    for (const std::string& location : locations)
        open(location);
    refusals_.tell(platform_);
}

bool AppDelegate::canOpen(const std::string& location) {
    const auto path = pathOf(location);
    const PathKind kind = path ? platform_.files.kindOf(*path) : PathKind::Other;
    return (kind == PathKind::File || kind == PathKind::Nothing) && isOpenable(platform_.files, *path);
}

bool AppDelegate::open(const std::string& location) {
    const auto path = pathOf(location);
    const auto refuse = [&](std::string_view key) {
        refusals_.add(path.value_or(location), Error{.message = platform_.base.texts.text(key)});
        return false;
    };
    if (!path)
        return refuse("NotLocalFile");
    switch (platform_.files.kindOf(*path)) {
    case PathKind::Folder:
        return refuse("IsFolder");
    case PathKind::Other:
        return refuse("IsNoFile");
    case PathKind::File:
    case PathKind::Nothing: // which is told by reading it
        break;
    }
    return documentController_.showDocumentOfFile(*path) || openContent(*path);
}

bool AppDelegate::openContent(const std::string& path) {
    const auto identity = platform_.files.identityOf(path);
    const Result<std::string> bytes = platform_.files.readFile(path);
    if (!bytes) {
        refusals_.add(path, missingFile(path, bytes.error()));
        return false;
    }
    const FileContent content = contentOfFile(*bytes, path);
    if (content.kind == FileContent::Kind::Unknown) {
        refusals_.add(path, Error{.message = platform_.base.texts.text("UnknownFile")});
        return false;
    }
    const bool opened =
        content.format ? openImported(*content.format, path, *bytes) : openDocument(path, *bytes, identity);
    if (opened)
        documentController_.closeUntouchedDocument();
    return opened;
}

bool AppDelegate::openDocument(const std::string& path, std::string_view bytes,
                               const std::optional<FileIdentity>& identity) {
    const Result<Document*> document = documentController_.openDocument(path, bytes, identity);
    if (!document)
        refusals_.add(path, document.error(), [this, path] {
            return documentController_.offerRemains(platform_.files.readFile(path),
                                                    nameWithoutExtension(path));
        });
    return document.value_or(nullptr) != nullptr;
}

// The file is named by the user, so that the document is called after it.
bool AppDelegate::openImported(const ImportFormat& format, const std::string& path, std::string_view bytes) {
    Result<Ref<Bookmark>> root = importCommands_.read(format, bytes, lastPathComponent(path));
    if (!root) {
        refusals_.add(path, root.error());
        return false;
    }
    if (!(*root)->hasChildren() && importSourceOf(format.name)->filter == PanelFilter::HTML) {
        refusals_.addEmpty(path, platform_.base.texts);
        return false;
    }
    Document* document = documentController_.newMasterDocument(std::move(*root));
    if (!document)
        return false;
    document->setDisplayName(nameWithoutExtension(path));
    documentController_.recentDocuments().note(path);
    return true;
}

// The recent documents forget a file that is gone, but not one whose folder is gone too: its disk may come
// back.
Error AppDelegate::missingFile(const std::string& path, const Error& error) {
    if (error.domain != ErrorDomain::Posix || (error.code != ENOENT && error.code != ENOTDIR))
        return error;
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const bool folderIsThere = platform_.files.kindOf(folder) == PathKind::Folder;
    if (folderIsThere)
        documentController_.recentDocuments().forget(path);
    return Error{.message = platform_.base.texts.format(folderIsThere ? "NoSuchFile" : "NoSuchFolder",
                                                        decodeUtf8Leniently(folder))};
}

void AppDelegate::openDocumentPanel() {
    if (openPanelIsShown_)
        return;
    const Localization& texts = platform_.base.texts;
    const OpenPanel panel{.message = texts.text("OpenFile"),
                          .prompt = texts.text("Open"),
                          .kinds = {{texts.text("BookmarkFiles"),
                                     {std::string(kDocumentExtension), "html", "htm", "xbel", "plist"}},
                                    {texts.text("AllFiles")}},
                          .allowsMultipleSelection = true,
                          .document = documentController_.currentDocument()};
    openPanelIsShown_ = true;
    platform_.panels.beginOpenPanel(panel, [this](const std::vector<std::string>& paths) {
        openPanelIsShown_ = false;
        openFiles(paths);
        if (documentController_.documents().empty() && !opensMore() && stop)
            stop();
    });
}

} // namespace tabulon
