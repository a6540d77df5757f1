// The commands of the Import menu: the panels in which the user chooses a file, the alerts, and the new
// documents. The sources are in app/ImportSource.h, the readers in formats/.
#pragma once

#include "app/ImportSource.h"
#include "formats/import/NetscapeScanner.h"
#include "platform/Platform.h"
#include "window/ActionTable.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

class Document;
class DocumentController;

/// Imports files, each into a new document. Paths are absolute and in the file system's encoding.
class ImportCommands {
public:
    /// Requires: `documents` and the services of `platform` outlive this object.
    ImportCommands(const Platform& platform, DocumentController& documents);

    /// Returns the action of every source, scanClipboard:, importFirefox: and importTor:.
    const ActionTable& actions() const { return actions_; }

    /// Shows the panel of a source and returns. The file chosen in it is imported as `importFile` does.
    /// Requires: `source` is one of `importSources()`.
    void beginImport(const ImportSource& source);
    /// Imports one file. Shows an alert if its name is not the one that the source requires, and the source's
    /// own alert, if it has one, if the file is of another format.
    void importFile(const ImportSource& source, const std::string& path);

    /// Reads `bytes` and returns the tree. Shows a progress panel with `name` if it takes long. Fails with
    /// the error of the format's reader, or that of a cancelled operation.
    Result<Ref<Bookmark>> read(const ImportFormat& format, std::string_view bytes, const std::string& name);

    /// Opens the bookmarks of a Netscape bookmark file called `name`. Returns `nullptr` if it cannot be read,
    /// and, after an alert, if it has no bookmark.
    Document* scanNetscape(std::string_view bytes, const std::string& name = {});
    /// Opens a document with the links that a text contains. Shows an alert and returns `nullptr` if it
    /// contains no link.
    Document* scanTextData(std::string_view bytes);
    /// Opens the links of a page that was copied (UTF-8). Returns `nullptr` if it cannot be parsed or has no
    /// links.
    Document* grabAllHTML(const std::string& html);
    /// Opens the links of the text on the clipboard. It is read as a page if it begins or contains tags like
    /// one, else as a text. Does nothing if the clipboard has no text.
    void scanClipboard();

private:
    /// Returns the files that panels enable while filters are set; empty for all files.
    std::vector<FileKind> kindsThatPanelsEnable() const;
    /// Shows the alert that the source has for a file of another format, if it has one.
    void failureAlert(const ImportSource& source, const std::string& path, const Error& error);
    /// Begins the progress of an import, as a panel of the current document.
    std::unique_ptr<Progress> beginProgressFor(const std::string& name);
    /// Reads `bytes` with the source of that format and opens the result.
    Document* scan(std::string_view format, std::string_view bytes, const std::string& name);
    /// Opens the tree with the title that the source has. Returns `nullptr`, after an alert, if an empty tree
    /// is reported, and if no window can be made.
    Document* showImported(const ImportSource& source, Ref<Bookmark> root);
    /// Shows the alert that names another way to import from Firefox.
    void firefoxAlert();

    const Platform platform_;
    DocumentController& documents_;
    ActionTable actions_;
    NetscapeScanner scanner_;
    /// The filters that are set.
    std::set<PanelFilter> panelFilters_;
};

} // namespace tabulon
