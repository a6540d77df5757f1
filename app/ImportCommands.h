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

/// Paths are absolute and in the file system's encoding. Every import makes a new document.
class ImportCommands {
public:
    /// What is passed in must outlive this object.
    ImportCommands(const Platform& platform, DocumentController& documents);

    /// The action of every source, scanClipboard:, importFirefox:, importTor:.
    const ActionTable& actions() const { return actions_; }

    /// Shows the panel of a source and imports the file chosen there.
    void beginImport(const ImportSource& source);
    /// Imports one file, or shows the alert that the source has for a file of another format.
    void importFile(const ImportSource& source, const std::string& path);

    /// Reads `bytes`, with a progress panel for `name` when it takes long. Fails as the format's reader.
    Result<Ref<Bookmark>> read(const ImportFormat& format, std::string_view bytes, const std::string& name);

    /// Scans a Netscape bookmark file called `name`. Returns `nullptr`, after an alert, when it contains
    /// nothing.
    Document* scanNetscape(std::string_view bytes, const std::string& name = {});
    /// Scans any text for links. Returns `nullptr`, after an alert, when it contains none.
    Document* scanTextData(std::string_view bytes);
    /// Opens the links of a page that was copied. Returns `nullptr` when that is not possible.
    Document* grabAllHTML(const std::string& html);
    /// Reads the text on the clipboard as a page when it looks like one, else as a text. Does nothing without
    /// a text.
    void scanClipboard();

private:
    std::vector<FileKind> kindsThatPanelsEnable() const;
    void failureAlert(const ImportSource& source, const std::string& path, const Error& error);
    std::unique_ptr<Progress> beginProgressFor(const std::string& name);
    Document* scan(std::string_view format, std::string_view bytes, const std::string& name);
    Document* showImported(const ImportSource& source, Ref<Bookmark> root);
    void firefoxAlert();

    const Platform platform_;
    DocumentController& documents_;
    ActionTable actions_;
    NetscapeScanner scanner_;
    std::set<PanelFilter> panelFilters_;
};

} // namespace tabulon
