// The Import menu: panels by which people name the files, what they are told, and the new documents.
#include "app/AppDelegate.h"
#include "base/Ascii.h"
#include "formats/import/HTMLWindowController.h"
#include "window/SharedAlerts.h"

#include <algorithm>
#include <filesystem>

namespace tabulon {
namespace {

// Whether "</A>" stands in the text, in any letter case.
bool holdsEndOfLink(std::string_view text) {
    constexpr std::string_view kEnd = "</a>";
    const auto same = [](char a, char b) { return ascii::lower(a) == b; };
    return std::search(text.begin(), text.end(), kEnd.begin(), kEnd.end(), same) != text.end();
}

// Whether a panel for these kinds enables the file. Dialogs take a name of any extension that is typed, or
// spelled with other letters.
bool isEnabled(const std::string& path, const std::vector<FileKind>& kinds) {
    const std::string extension = std::filesystem::path(path).extension().string();
    const auto has = [&](const FileKind& kind) {
        return std::ranges::any_of(kind.extensions,
                                   [&](const std::string& enabled) { return extension == "." + enabled; });
    };
    return kinds.empty() || std::ranges::any_of(kinds, has);
}

} // namespace

void AppDelegate::addImportActions() {
    for (const ImportFormat& format : importFormats())
        actions_.add(format.action, [this, &format](const MenuItem&) { beginImport(format); });
    actions_.add("scanClipboard:", [this](const MenuItem&) { scanClipboard(); });
    for (const char* action : {"importFirefox:", "importTor:"})
        actions_.add(action, [this](const MenuItem&) { firefoxAlert(); });
}

Menu AppDelegate::importMenu() {
    Menu menu;
    const auto add = [&](std::string_view titleKey, std::string_view action, std::string_view browser) {
        MenuItem item = command(titleKey, std::string(action));
        // What people have comes with a mark.
        if (const auto found = platform_.browsers.bookmarkFiles(browser); !found.empty()) {
            item.imageName = "validStatus";
            item.toolTip = platform_.base.texts.format("BrowserFound", decodeUtf8Leniently(found.front()));
        }
        menu.items.push_back(std::move(item));
    };
    bool lastIsBrowser = false;
    for (const ImportFormat& format : importFormats()) {
        if (lastIsBrowser && format.browser.empty()) {
            add("MenuImportFirefox", "importFirefox:", {});
            add("MenuImportTor", "importTor:", {});
            menu.items.push_back(MenuItem::makeSeparator());
        }
        lastIsBrowser = !format.browser.empty();
        add(format.titleKey, format.action, format.browser);
    }
    menu.items.push_back(command("MenuScanClipboard", "scanClipboard:"));
    return menu;
}

// What the panels enable while filters are set, as one kind; everything where none is.
std::vector<FileKind> AppDelegate::kindsThatPanelsEnable() const {
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

void AppDelegate::beginImport(const ImportFormat& format) {
    const Localization& texts = platform_.base.texts;
    OpenPanel panel{.message = texts.format(format.messageKey, std::string(format.fileName)),
                    .prompt = texts.text("Select"),
                    .document = documentController_.currentDocument()};
    if (!format.browser.empty()) {
        const auto found = platform_.browsers.bookmarkFiles(format.browser);
        panel.selectedFile = found.empty() ? std::string() : found.front();
        panel.directory = found.empty() ? platform_.browsers.folderOfForeignFiles()
                                        : std::filesystem::path(found.front()).parent_path().string();
    }
    if (format.filter != PanelFilter::None) {
        panelFilters_.insert(format.filter);
        panel.kinds = kindsThatPanelsEnable();
    }
    const std::vector<FileKind> kinds = panel.kinds;
    platform_.panels.beginOpenPanel(panel, [this, &format, kinds](const std::vector<std::string>& paths) {
        if (!format.keepsFilter)
            panelFilters_.erase(format.filter);
        if (!paths.empty() && isEnabled(paths.front(), kinds))
            importFile(format, paths.front());
    });
}

void AppDelegate::importFile(const ImportFormat& format, const std::string& path) {
    const Localization& texts = platform_.base.texts;
    if (!format.fileName.empty() && lastPathComponent(path) != format.fileName)
        return importErrorAlert(platform_, texts.format(format.messageKey, std::string(format.fileName)));
    const Result<std::string> bytes =
        platform_.files.kindOf(path) == PathKind::Other // its end may never come
            ? failure("It is no file.")
            : platform_.files.readFile(path);
    if (!bytes) {
        if (format.tellsUnreadable)
            importFailureAlert(format, path, bytes.error());
        return;
    }
    Result<Ref<Bookmark>> root = read(format, *bytes, lastPathComponent(path));
    if (!root)
        return importFailureAlert(format, path, root.error());
    showImported(format, std::move(*root));
}

// What takes long shows a bar.
Result<Ref<Bookmark>> AppDelegate::read(const ImportFormat& format, std::string_view bytes,
                                        const std::string& source) {
    const auto progress = beginImporting(source);
    return format.read(bytes, {platform_.base, scanner_, progress.get()});
}

std::unique_ptr<Progress> AppDelegate::beginImporting(const std::string& source) {
    return beginProgress(platform_, "Importing", source, documentController_.currentDocument());
}

void AppDelegate::importFailureAlert(const ImportFormat& format, const std::string& path,
                                     const Error& error) {
    if (isCancelledByUser(error))
        return;
    const Localization& texts = platform_.base.texts;
    switch (format.failure) {
    case ImportFailure::IsSilent:
        return;
    case ImportFailure::IsDetailed:
        return detailedErrorAlert(platform_, error.code, lastPathComponent(path),
                                  texts.format("CouldNotOpen", lastPathComponent(path)) + ".", error.message);
    case ImportFailure::IsLocalized:
        return importErrorAlert(platform_, texts.text(format.failureText));
    case ImportFailure::IsFixed:
        return importErrorAlert(platform_, std::string(format.failureText));
    }
}

Document* AppDelegate::showImported(const ImportFormat& format, Ref<Bookmark> root) {
    if (format.empty == EmptyImport::IsTold && !root->hasChildren()) {
        noURLs(platform_);
        return nullptr;
    }
    Document* document = newMasterDocument(std::move(root));
    if (document && !format.title.empty())
        document->setDisplayName(std::string(format.title));
    if (document && !format.source.empty()) {
        // The question about its changes and the save panel call it what the window does.
        const std::string title =
            platform_.base.texts.format("ImportedBookmarks", std::string(format.source));
        document->setDisplayName(title);
        documentController_.getViewController(*document)->window().setWindowTitle(title);
    }
    return document;
}

Document* AppDelegate::scanNetscape(std::string_view bytes, const std::string& source) {
    return scan(*importFormatNamed("html"), bytes, source);
}

Document* AppDelegate::scanTextData(std::string_view bytes) {
    return scan(*importFormatNamed("text"), bytes, platform_.base.texts.text("Clipboard"));
}

Document* AppDelegate::scan(const ImportFormat& format, std::string_view bytes, const std::string& source) {
    Result<Ref<Bookmark>> root = read(format, bytes, source);
    return root ? showImported(format, std::move(*root)) : nullptr;
}

Document* AppDelegate::grabAllHTML(const std::string& html) {
    HTMLWindowController controller(platform_.base);
    controller.setHtmlText(Text(html));
    controller.setBundleID("");
    controller.setDomain("");
    if (!controller.windowDidLoad(beginImporting(platform_.base.texts.text("Clipboard")).get()))
        return nullptr;
    Ref<Bookmark> root = controller.createDocument();
    Document* document = root ? newMasterDocument(std::move(root)) : nullptr;
    if (document)
        document->setDisplayName(controller.title().string());
    return document;
}

void AppDelegate::scanClipboard() {
    const std::optional<std::string> text = platform_.pasteboard.string();
    if (!text)
        return;
    if (text->starts_with("<html>") || text->starts_with("<HTML>") || holdsEndOfLink(*text))
        grabAllHTML(*text);
    else
        scanTextData(std::string_view(*text).substr(0, text->find('\0')));
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

void AppDelegate::firefoxAlert() {
    const Localization& texts = platform_.base.texts;
    platform_.alerts.runModal(
        Alert{.message = "Direct Import of Firefox or Tor bookmarks is currently not supported.",
              .informative = "Please use Firefox -> Show All Bookmarks -> Export Bookmarks to HTML and then "
                             "Tabulon -> Import -> Bookmarks HTML File.",
              .buttons = {{texts.text("OK")}, {texts.text("Cancel")}}});
}

} // namespace tabulon
