#include "app/ImportCommands.h"

#include "app/DocumentController.h"
#include "app/HTMLWindowController.h"
#include "base/Ascii.h"
#include "window/SharedAlerts.h"

#include <algorithm>
#include <filesystem>

namespace tabulon {
namespace {

// Returns whether the text contains "</A>", in any letter case.
bool holdsEndOfLink(std::string_view text) {
    constexpr std::string_view kEnd = "</a>";
    const auto same = [](char a, char b) { return ascii::lower(a) == b; };
    return std::search(text.begin(), text.end(), kEnd.begin(), kEnd.end(), same) != text.end();
}

// Returns whether a panel for these kinds enables the file. Dialogs accept a typed name with any extension,
// and with one in other letter case.
bool isEnabled(const std::string& path, const std::vector<FileKind>& kinds) {
    const std::string extension = std::filesystem::path(path).extension().string();
    const auto has = [&](const FileKind& kind) {
        return std::ranges::any_of(kind.extensions,
                                   [&](const std::string& enabled) { return extension == "." + enabled; });
    };
    return kinds.empty() || std::ranges::any_of(kinds, has);
}

} // namespace

ImportCommands::ImportCommands(const Platform& platform, DocumentController& documents)
    : platform_(platform), documents_(documents) {
    for (const ImportSource& source : importSources())
        actions_.add(source.action, [this, &source](const MenuItem&) { beginImport(source); });
    actions_.add("scanClipboard:", [this](const MenuItem&) { scanClipboard(); });
    for (const char* action : {"importFirefox:", "importTor:"})
        actions_.add(action, [this](const MenuItem&) { firefoxAlert(); });
}

// Returns what the panels enable while filters are set, as one kind; empty if none is set.
std::vector<FileKind> ImportCommands::kindsThatPanelsEnable() const {
    FileKind kind;
    const auto add = [&](PanelFilter filter, std::string_view labelKey) {
        if (!panelFilters_.contains(filter))
            return;
        const auto extensions = extensionsOf(filter);
        kind.label += (kind.label.empty() ? "" : ", ") + platform_.base.texts.text(labelKey);
        kind.extensions.insert(kind.extensions.end(), extensions.begin(), extensions.end());
    };
    add(PanelFilter::XBEL, "XBELFiles");
    add(PanelFilter::HTML, "BookmarkHTMLFiles");
    return kind.extensions.empty() ? std::vector<FileKind>() : std::vector<FileKind>{kind};
}

void ImportCommands::beginImport(const ImportSource& source) {
    const Localization& texts = platform_.base.texts;
    OpenPanel panel{.message = texts.format(source.messageKey, std::string(source.fileName)),
                    .prompt = texts.text("Select"),
                    .document = documents_.currentDocument()};
    if (!source.browser.empty()) {
        const auto found = platform_.browsers.bookmarkFiles(source.browser);
        panel.selectedFile = found.empty() ? std::string() : found.front();
        panel.directory = found.empty() ? platform_.browsers.folderOfForeignFiles()
                                        : std::filesystem::path(found.front()).parent_path().string();
    }
    if (source.filter != PanelFilter::None) {
        panelFilters_.insert(source.filter);
        panel.kinds = kindsThatPanelsEnable();
    }
    const std::vector<FileKind> kinds = panel.kinds;
    platform_.panels.beginOpenPanel(panel, [this, &source, kinds](const std::vector<std::string>& paths) {
        if (!source.keepsFilter)
            panelFilters_.erase(source.filter);
        if (!paths.empty() && isEnabled(paths.front(), kinds))
            importFile(source, paths.front());
    });
}

void ImportCommands::importFile(const ImportSource& source, const std::string& path) {
    const Localization& texts = platform_.base.texts;
    if (!source.fileName.empty() && lastPathComponent(path) != source.fileName)
        return importErrorAlert(platform_, texts.format(source.messageKey, std::string(source.fileName)));
    const Result<std::string> bytes =
        platform_.files.kindOf(path) == PathKind::Other // reading it may never end
            ? failure("It is no file.")
            : platform_.files.readFile(path);
    if (!bytes) {
        if (source.reportsUnreadable)
            failureAlert(source, path, bytes.error());
        return;
    }
    Result<Ref<Bookmark>> root = read(*importFormatNamed(source.format), *bytes, lastPathComponent(path));
    if (!root)
        return failureAlert(source, path, root.error());
    showImported(source, std::move(*root));
}

Result<Ref<Bookmark>> ImportCommands::read(const ImportFormat& format, std::string_view bytes,
                                           const std::string& name) {
    const auto progress = beginProgressFor(name);
    return format.read(bytes, {platform_.base, progress.get(), &scanner_});
}

std::unique_ptr<Progress> ImportCommands::beginProgressFor(const std::string& name) {
    return beginProgress(platform_, "Importing", name, documents_.currentDocument());
}

void ImportCommands::failureAlert(const ImportSource& source, const std::string& path, const Error& error) {
    if (isCancelledByUser(error))
        return;
    const Localization& texts = platform_.base.texts;
    switch (source.failure) {
    case ImportFailure::IsSilent:
        return;
    case ImportFailure::IsDetailed:
        return detailedErrorAlert(platform_, error.code, lastPathComponent(path),
                                  texts.format("CouldNotOpen", lastPathComponent(path)) + ".", error.message);
    case ImportFailure::IsLocalized:
        return importErrorAlert(platform_, texts.text(source.failureText));
    case ImportFailure::IsFixed:
        return importErrorAlert(platform_, std::string(source.failureText));
    }
}

Document* ImportCommands::showImported(const ImportSource& source, Ref<Bookmark> root) {
    if (source.reportsEmpty && !root->hasChildren()) {
        noURLs(platform_);
        return nullptr;
    }
    Document* document = documents_.newMasterDocument(std::move(root));
    if (document && !source.title.empty())
        document->setDisplayName(std::string(source.title));
    if (document && !source.name.empty()) {
        // The question about its changes and the save panel use the same name as the window.
        const std::string title = platform_.base.texts.format("ImportedBookmarks", std::string(source.name));
        document->setDisplayName(title);
        documents_.getViewController(*document)->window().setWindowTitle(title);
    }
    return document;
}

Document* ImportCommands::scanNetscape(std::string_view bytes, const std::string& name) {
    return scan("html", bytes, name);
}

Document* ImportCommands::scanTextData(std::string_view bytes) {
    return scan("text", bytes, platform_.base.texts.text("Clipboard"));
}

Document* ImportCommands::scan(std::string_view format, std::string_view bytes, const std::string& name) {
    const ImportSource& source = *importSourceOf(format);
    Result<Ref<Bookmark>> root = read(*importFormatNamed(source.format), bytes, name);
    return root ? showImported(source, std::move(*root)) : nullptr;
}

Document* ImportCommands::grabAllHTML(const std::string& html) {
    HTMLWindowController controller(platform_.base, documents_);
    controller.setHtmlText(Text(html));
    controller.setBundleID("");
    controller.setDomain("");
    const auto loaded =
        controller.windowDidLoad(beginProgressFor(platform_.base.texts.text("Clipboard")).get());
    return loaded ? controller.createDocument() : nullptr;
}

void ImportCommands::scanClipboard() {
    const std::optional<std::string> text = platform_.pasteboard.string();
    if (!text)
        return;
    if (text->starts_with("<html>") || text->starts_with("<HTML>") || holdsEndOfLink(*text))
        grabAllHTML(*text);
    else
        scanTextData(std::string_view(*text).substr(0, text->find('\0')));
}

void ImportCommands::firefoxAlert() {
    const Localization& texts = platform_.base.texts;
    platform_.alerts.runModal(
        Alert{.message = "Direct Import of Firefox or Tor bookmarks is currently not supported.",
              .informative = "Please use Firefox -> Show All Bookmarks -> Export Bookmarks to HTML and then "
                             "Tabulon -> Import -> Bookmarks HTML File.",
              .buttons = {{texts.text("OK")}, {texts.text("Cancel")}}});
}

} // namespace tabulon
