#include "app/FileOpening.h"

#include "app/DocumentController.h"
#include "app/FileContent.h"
#include "app/ImportCommands.h"
#include "app/RequestQueue.h"
#include "base/Utf8.h"
#include "text/FileUri.h"
#include "window/SharedAlerts.h"

#include <cerrno>
#include <filesystem>

namespace tabulon {
namespace {

// Returns `nullopt` for a location that is no file of this computer.
std::optional<std::string> pathOf(const std::string& location) {
    std::optional<std::string> path =
        location.starts_with('/') ? std::optional(location) : pathOfFileUri(location);
    while (path && path->size() > 1 && path->ends_with('/'))
        path->pop_back();
    return path;
}

} // namespace

FileOpening::FileOpening(const Platform& platform, DocumentController& documents, ImportCommands& imports,
                         RequestQueue& queue, LastDocumentObserver& observer)
    : platform_(platform), documents_(documents), imports_(imports), queue_(queue), observer_(observer) {
    addActions();
}

void FileOpening::addActions() {
    actions_.add("openDocument:", [this](const MenuItem&) { openDocumentPanel(); });
    actions_.add("openRecentDocument:", [this](const MenuItem& sender) {
        if (const auto* path = std::get_if<std::string>(&sender.representedObject))
            openFile(*path);
    });
    actions_.add(
        "clearRecentDocuments:", [this](const MenuItem&) { documents_.recentDocuments().clear(); },
        [this](const MenuItem&) { return !documents_.recentDocuments().paths().empty(); });
}

bool FileOpening::openFile(const std::string& location) {
    const bool opened = open(location);
    reportRefusals();
    return opened;
}

void FileOpening::openFiles(const std::vector<std::string>& locations) {
    queue_.open(locations);
}

bool FileOpening::canOpen(const std::string& location) {
    const auto path = pathOf(location);
    const PathKind kind = path ? platform_.files.kindOf(*path) : PathKind::Other;
    return (kind == PathKind::File || kind == PathKind::Nothing) && isOpenable(platform_.files, *path);
}

bool FileOpening::open(const std::string& location) {
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
    case PathKind::Nothing: // reading it reports the error
        break;
    }
    return documents_.showDocumentOfFile(*path) || openContent(*path);
}

bool FileOpening::openContent(const std::string& path) {
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
        documents_.closeUntouchedDocument();
    return opened;
}

bool FileOpening::openDocument(const std::string& path, std::string_view bytes,
                               const std::optional<FileIdentity>& identity) {
    const Result<Document*> document = documents_.openDocument(path, bytes, identity);
    if (!document)
        refusals_.add(path, document.error(), [this, path] {
            return documents_.offerRemains(platform_.files.readFile(path), nameWithoutExtension(path));
        });
    return document.value_or(nullptr) != nullptr;
}

// The document has the name of the file, because the user has chosen that name.
bool FileOpening::openImported(const ImportFormat& format, const std::string& path, std::string_view bytes) {
    Result<Ref<Bookmark>> root = imports_.read(format, bytes, lastPathComponent(path));
    if (!root) {
        refusals_.add(path, root.error());
        return false;
    }
    if (!(*root)->hasChildren() && importSourceOf(format.name)->filter == PanelFilter::HTML) {
        refusals_.addEmpty(path, platform_.base.texts);
        return false;
    }
    Document* document = documents_.newMasterDocument(std::move(*root));
    if (!document)
        return false;
    document->setDisplayName(nameWithoutExtension(path));
    documents_.recentDocuments().note(path);
    return true;
}

// Removes a missing file from the recent documents. It stays if its folder is missing, too: its disk may be
// connected later.
Error FileOpening::missingFile(const std::string& path, const Error& error) {
    if (error.domain != ErrorDomain::Posix || (error.code != ENOENT && error.code != ENOTDIR))
        return error;
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const bool folderIsThere = platform_.files.kindOf(folder) == PathKind::Folder;
    if (folderIsThere)
        documents_.recentDocuments().forget(path);
    return Error{.message = platform_.base.texts.format(folderIsThere ? "NoSuchFile" : "NoSuchFolder",
                                                        decodeUtf8Leniently(folder))};
}

void FileOpening::openDocumentPanel() {
    if (openPanelIsShown_)
        return;
    const Localization& texts = platform_.base.texts;
    const OpenPanel panel{.message = texts.text("OpenFile"),
                          .prompt = texts.text("Open"),
                          .kinds = {{texts.text("BookmarkFiles"),
                                     {std::string(kDocumentExtension), "html", "htm", "xbel", "plist"}},
                                    {texts.text("AllFiles")}},
                          .allowsMultipleSelection = true,
                          .document = documents_.currentDocument()};
    openPanelIsShown_ = true;
    platform_.panels.beginOpenPanel(
        panel, [this](const std::vector<std::string>& paths) { openPanelDidClose(paths); });
}

void FileOpening::openPanelDidClose(const std::vector<std::string>& paths) {
    openPanelIsShown_ = false;
    openFiles(paths);
    if (documents_.documents().empty())
        observer_.noDocumentIsOpen();
}

} // namespace tabulon
