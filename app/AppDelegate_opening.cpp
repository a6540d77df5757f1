// Opening files of every kind.
#include "app/AppDelegate.h"
#include "app/FileContent.h"
#include "window/FileUri.h"
#include "window/SharedAlerts.h"

#include <algorithm>
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

// What an alert calls it.
std::string nameOf(const std::string& location) {
    return location.starts_with('/') && location != "/" ? lastPathComponent(location)
                                                        : decodeUtf8Leniently(location);
}

} // namespace

bool AppDelegate::openFile(const std::string& location) {
    std::vector<Refusal> refusals;
    const bool opened = open(location, refusals);
    refusalsAlert(refusals);
    return opened;
}

void AppDelegate::openFiles(const std::vector<std::string>& locations) {
    std::vector<Refusal> refusals;
    for (const std::string& location : locations)
        open(location, refusals);
    refusalsAlert(refusals);
}

bool AppDelegate::open(const std::string& location, std::vector<Refusal>& refusals) {
    const auto path = pathOf(location);
    const auto refuse = [&](std::string_view key) {
        refusals.push_back({path.value_or(location), Error{.message = platform_.base.texts.text(key)}});
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
    return documentController_.showDocumentOfFile(*path) || openContent(*path, refusals);
}

bool AppDelegate::openContent(const std::string& path, std::vector<Refusal>& refusals) {
    const auto identity = platform_.files.identityOf(path);
    const Result<std::string> bytes = platform_.files.readFile(path);
    if (!bytes) {
        refusals.push_back({path, missingFile(path, bytes.error())});
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
        refusals.push_back({path, Error{.message = platform_.base.texts.text("UnknownFile")}});
        return false;
    }
    documentController_.closeUntouchedDocument();
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

void AppDelegate::refusalsAlert(const std::vector<Refusal>& refusals) {
    constexpr std::size_t kMostLines = 8;
    if (refusals.empty())
        return;
    const Localization& texts = platform_.base.texts;
    if (refusals.size() == 1)
        return criticalAlert(platform_, texts.format("CouldNotOpen", nameOf(refusals[0].location)),
                             refusals[0].error.message);
    std::string lines;
    for (std::size_t i = 0; i < std::min(refusals.size(), kMostLines); ++i)
        lines += (i == 0 ? "“" : "\n“") + nameOf(refusals[i].location) + "”: " + refusals[i].error.message;
    if (refusals.size() > kMostLines)
        lines += "\n" + texts.format("AndMore", std::to_string(refusals.size() - kMostLines));
    criticalAlert(platform_, texts.format("CouldNotOpenFiles", std::to_string(refusals.size())), lines);
}

bool AppDelegate::openBookmarkHTML(const std::string& path, std::string_view bytes) {
    Document* document = scanNetscape(bytes, lastPathComponent(path));
    if (!document)
        return false;
    document->setDisplayName(nameWithoutExtension(path));
    documentController_.recentDocuments().note(path);
    return true;
}

void AppDelegate::openDocumentPanel() {
    if (openPanelIsShown_)
        return;
    const Localization& texts = platform_.base.texts;
    const OpenPanel panel{
        .message = texts.text("OpenFile"),
        .prompt = texts.text("Open"),
        .kinds = {{texts.text("BookmarkFiles"), {std::string(kDocumentExtension), "html", "htm"}}},
        .allowsMultipleSelection = true,
        .document = documentController_.currentDocument()};
    openPanelIsShown_ = true;
    platform_.panels.beginOpenPanel(panel, [this](const std::vector<std::string>& paths) {
        openPanelIsShown_ = false;
        openFiles(paths);
        if (documentController_.documents().empty() && stop)
            stop();
    });
}

} // namespace tabulon
