// Opening files of every kind: documents, and bookmark files of other programs. The open panel, the recent
// documents, and the alert about files that could not be opened are here.
#pragma once

#include "app/Refusals.h"
#include "formats/ImportFormats.h"
#include "platform/Platform.h"
#include "window/ActionTable.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

class DocumentController;
class ImportCommands;
class LastDocumentObserver;
class RequestQueue;

/// Opens files. A location is a path or a URI. Paths are absolute and in the file system's encoding.
class FileOpening {
public:
    /// Requires: the arguments and the services of `platform` outlive this object. `observer` is called when
    /// the open panel closes and no document is open.
    FileOpening(const Platform& platform, DocumentController& documents, ImportCommands& imports,
                RequestQueue& queue, LastDocumentObserver& observer);

    /// Returns the actions openDocument:, openRecentDocument: and clearRecentDocuments:.
    const ActionTable& actions() const { return actions_; }

    /// Opens a bookmark document; or a bookmark file of another program, or a page, as an untitled document
    /// with the file's name. The content decides about the kind, then the extension. A file that is open
    /// already, by whatever path, is brought to the front. Returns whether it has a window then. A refusal is
    /// kept for `reportRefusals`.
    bool open(const std::string& location);
    /// Shows one alert that lists the files refused since the last call. Does nothing if no file was refused.
    void reportRefusals() { refusals_.report(platform_); }

    /// Opens one file as `open` does, and shows the alert if it is refused. Returns whether it has a window
    /// then.
    bool openFile(const std::string& location);
    /// Opens files one by one from the main loop, and returns before that. One alert lists the refused files.
    void openFiles(const std::vector<std::string>& locations);
    /// Returns whether `open` would try to open the file: it is of a known kind and no file of a single link,
    /// or it cannot be read or is missing and has the extension of documents.
    bool canOpen(const std::string& location);
    /// Shows the open panel, unless it is shown already, and returns. The files chosen in it are opened as
    /// `openFiles` does.
    void openDocumentPanel();

private:
    /// Adds the actions to the table.
    void addActions();
    /// Reads the file and opens it, or keeps a refusal. Returns whether it has a window then.
    bool openContent(const std::string& path);
    /// Opens a bookmark document, or keeps a refusal with the offer to open what can be read.
    bool openDocument(const std::string& path, std::string_view bytes,
                      const std::optional<FileIdentity>& identity);
    /// Opens a file of another program, or keeps a refusal.
    bool openImported(const ImportFormat& format, const std::string& path, std::string_view bytes);
    /// Returns the error to report for a file that cannot be read. Removes a missing file from the recent
    /// documents, unless its folder is missing too.
    Error missingFile(const std::string& path, const Error& error);
    /// Opens the chosen files; none if the user has cancelled. Calls the observer if no document is open.
    void openPanelDidClose(const std::vector<std::string>& paths);

    const Platform platform_;
    DocumentController& documents_;
    ImportCommands& imports_;
    RequestQueue& queue_;
    LastDocumentObserver& observer_;
    ActionTable actions_;
    /// The files refused since the last alert.
    Refusals refusals_;
    /// True from the call of `openDocumentPanel` until the panel closes.
    bool openPanelIsShown_ = false;
};

} // namespace tabulon
