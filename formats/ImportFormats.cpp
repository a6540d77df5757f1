#include "formats/ImportFormats.h"

#include "formats/import/ChromiumJSON.h"
#include "formats/import/HTMLWindowController.h"
#include "formats/import/PlistBookmarks.h"
#include "formats/import/TextScanner.h"
#include "formats/import/XBELReader.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

// The scanners end early and give what they have.
Result<Ref<Bookmark>> unlessCancelled(Ref<Bookmark> root, const ImportServices& services) {
    if (services.progress && !services.progress->goOn(1))
        return cancelledByUser();
    return root;
}

Result<Ref<Bookmark>> readBookmarkHTML(std::string_view bytes, const ImportServices& services) {
    return unlessCancelled(services.netscape.scan(bytes, services.base, services.progress), services);
}

Result<Ref<Bookmark>> readPage(std::string_view bytes, const ImportServices& services) {
    return readPageFile(bytes, services.base, services.progress);
}

Result<Ref<Bookmark>> readText(std::string_view bytes, const ImportServices& services) {
    return unlessCancelled(scanText(bytes, services.base, services.progress), services);
}

Result<Ref<Bookmark>> readXBELFile(std::string_view bytes, const ImportServices& services) {
    return readXBEL(bytes, services.base, services.progress);
}

Result<Ref<Bookmark>> readSafari(std::string_view bytes, const ImportServices& services) {
    return readSafariBookmarks(bytes, services.base, services.progress);
}

Result<Ref<Bookmark>> readICab(std::string_view bytes, const ImportServices& services) {
    return readICabBookmarks(bytes, services.base, services.progress);
}

Result<Ref<Bookmark>> readChromium(std::string_view bytes, const ImportServices& services) {
    return readChromiumBookmarks(bytes, services.base, services.progress);
}

Result<Ref<Bookmark>> readOpera(std::string_view bytes, const ImportServices& services) {
    return readOperaBookmarks(bytes, services.base, services.progress);
}

constexpr auto kXBELExtensions = std::to_array<std::string_view>({"xbel"});
constexpr auto kHTMLExtensions = std::to_array<std::string_view>({"html", "htm"});

constexpr std::string_view kPleaseSelectFile = "PleaseSelectFile";

// The five browsers of one family differ in their names.
constexpr ImportFormat chromium(std::string_view name, std::string_view titleKey, std::string_view action,
                                std::string_view browser, std::string_view source) {
    return {.name = name,
            .titleKey = titleKey,
            .action = action,
            .messageKey = kPleaseSelectFile,
            .fileName = "Bookmarks",
            .browser = browser,
            .source = source,
            .failure = ImportFailure::IsLocalized,
            .failureText = "ErrorImportBookmarks",
            .tellsUnreadable = true,
            .read = readChromium};
}

constexpr auto kFormats = std::to_array<ImportFormat>({
    {.name = "safari",
     .titleKey = "MenuImportSafari",
     .action = "importSafari:",
     .messageKey = kPleaseSelectFile,
     .fileName = "Bookmarks.plist",
     .browser = "com.apple.Safari",
     .source = "Safari",
     .failure = ImportFailure::IsDetailed,
     .read = readSafari},
    chromium("chrome", "MenuImportChrome", "importChrome:", "com.google.Chrome", "Chrome"),
    chromium("chromium", "MenuImportChromium", "importChromium:", "org.chromium.Chromium", "Chromium"),
    chromium("vivaldi", "MenuImportVivaldi", "importVivaldi:", "com.vivaldi.Vivaldi", "Vivaldi"),
    chromium("brave", "MenuImportBrave", "importBrave:", "com.brave.Browser", "Brave"),
    chromium("edge", "MenuImportEdge", "importEdge:", "com.microsoft.edgemac", "Edge"),
    {.name = "opera",
     .titleKey = "MenuImportOpera",
     .action = "importOpera:",
     .messageKey = kPleaseSelectFile,
     .fileName = "Bookmarks",
     .browser = "com.operasoftware.Opera",
     .source = "Opera",
     .failure = ImportFailure::IsFixed,
     .failureText = "Error importing Opera bookmarks",
     .tellsUnreadable = true,
     .read = readOpera},
    {.name = "icab",
     .titleKey = "MenuImportiCab",
     .action = "importiCab:",
     .messageKey = kPleaseSelectFile,
     .fileName = "iCab 4 Bookmarks",
     .browser = "de.icab.iCab",
     .source = "iCab",
     .failure = ImportFailure::IsFixed,
     .failureText = "Error importing iCab bookmarks",
     .read = readICab},
    {.name = "html",
     .titleKey = "MenuImportBookmarks",
     .action = "importBookmarks:",
     .messageKey = "SelectBookmarks",
     .filter = PanelFilter::HTML,
     .keepsFilter = true,
     .empty = EmptyImport::IsTold,
     .read = readBookmarkHTML},
    {.name = "html-links",
     .titleKey = "MenuImportHTML",
     .action = "importHTML:",
     .messageKey = "SelectHTML",
     .title = "Imported Bookmarks",
     .filter = PanelFilter::HTML,
     .read = readPage},
    {.name = "xbel",
     .titleKey = "MenuImportXBEL",
     .action = "importXBEL:",
     .messageKey = "SelectXBEL",
     .filter = PanelFilter::XBEL,
     .read = readXBELFile},
    {.name = "text",
     .titleKey = "MenuScanText",
     .action = "scanText:",
     .messageKey = "SelectTEXT",
     .empty = EmptyImport::IsTold,
     .read = readText},
});

} // namespace

std::span<const std::string_view> extensionsOf(PanelFilter filter) {
    switch (filter) {
    case PanelFilter::HTML:
        return kHTMLExtensions;
    case PanelFilter::XBEL:
        return kXBELExtensions;
    case PanelFilter::None:
        break;
    }
    return {};
}

std::span<const ImportFormat> importFormats() {
    return kFormats;
}

const ImportFormat* importFormatNamed(std::string_view name) {
    const auto found = std::ranges::find(kFormats, name, &ImportFormat::name);
    return found == kFormats.end() ? nullptr : &*found;
}

} // namespace tabulon
