// Opening files of every kind: documents, and bookmark files of other programs, determined by content; the
// panel, the recent documents, the alert about what could not be opened.
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

/// A location is a path or a URI. Paths are absolute and in the file system's encoding.
class FileOpening {
public:
    /// `observer` is called when the open panel closes and no document is open. What is passed in must
    /// outlive this object.
    FileOpening(const Platform& platform, DocumentController& documents, ImportCommands& imports,
                RequestQueue& queue, LastDocumentObserver& observer);

    /// openDocument:, openRecentDocument:, clearRecentDocuments:.
    const ActionTable& actions() const { return actions_; }

    /// Opens a bookmark document, or a bookmark file of another program or a page as an untitled document
    /// named after it. The kind is determined by content, then by extension. A file that is open already,
    /// under whatever path, comes to the front. Returns whether there is a window for it now. A refusal is
    /// kept for `tellRefusals`.
    bool open(const std::string& location);
    /// Shows one alert that lists the files refused since the last call; none when there are none.
    void tellRefusals() { refusals_.tell(platform_); }

    /// Opens one file and shows the alert when it is refused.
    bool openFile(const std::string& location);
    /// Opens files one by one from the main loop. One alert lists the refused ones.
    void openFiles(const std::vector<std::string>& locations);
    /// Returns whether there is a file that `open` would try to open, or one whose name is a document's and
    /// that cannot be read. A file that contains a single link is not one.
    bool canOpen(const std::string& location);
    /// Shows the open panel, unless it is shown already, and opens the files chosen there.
    void openDocumentPanel();

private:
    void addActions();
    bool openContent(const std::string& path);
    bool openDocument(const std::string& path, std::string_view bytes,
                      const std::optional<FileIdentity>& identity);
    bool openImported(const ImportFormat& format, const std::string& path, std::string_view bytes);
    Error missingFile(const std::string& path, const Error& error);
    void openPanelDidClose(const std::vector<std::string>& paths);

    const Platform platform_;
    DocumentController& documents_;
    ImportCommands& imports_;
    RequestQueue& queue_;
    LastDocumentObserver& observer_;
    ActionTable actions_;
    Refusals refusals_;
    bool openPanelIsShown_ = false;
};

} // namespace tabulon
