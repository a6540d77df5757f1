#include "app/ImportSource.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

constexpr auto kXBELExtensions = std::to_array<std::string_view>({"xbel"});
constexpr auto kHTMLExtensions = std::to_array<std::string_view>({"html", "htm"});

constexpr std::string_view kPleaseSelectFile = "PleaseSelectFile";

// The five browsers of one family differ in their names.
constexpr ImportSource chromium(std::string_view format, std::string_view titleKey, std::string_view action,
                                std::string_view browser, std::string_view name) {
    return {.format = format,
            .titleKey = titleKey,
            .action = action,
            .messageKey = kPleaseSelectFile,
            .fileName = "Bookmarks",
            .browser = browser,
            .name = name,
            .failure = ImportFailure::IsLocalized,
            .failureText = "ErrorImportBookmarks",
            .reportsUnreadable = true};
}

constexpr auto kSources = std::to_array<ImportSource>({
    {.format = "safari",
     .titleKey = "MenuImportSafari",
     .action = "importSafari:",
     .messageKey = kPleaseSelectFile,
     .fileName = "Bookmarks.plist",
     .browser = "com.apple.Safari",
     .name = "Safari",
     .failure = ImportFailure::IsDetailed},
    chromium("chrome", "MenuImportChrome", "importChrome:", "com.google.Chrome", "Chrome"),
    chromium("chromium", "MenuImportChromium", "importChromium:", "org.chromium.Chromium", "Chromium"),
    chromium("vivaldi", "MenuImportVivaldi", "importVivaldi:", "com.vivaldi.Vivaldi", "Vivaldi"),
    chromium("brave", "MenuImportBrave", "importBrave:", "com.brave.Browser", "Brave"),
    chromium("edge", "MenuImportEdge", "importEdge:", "com.microsoft.edgemac", "Edge"),
    {.format = "opera",
     .titleKey = "MenuImportOpera",
     .action = "importOpera:",
     .messageKey = kPleaseSelectFile,
     .fileName = "Bookmarks",
     .browser = "com.operasoftware.Opera",
     .name = "Opera",
     .failure = ImportFailure::IsFixed,
     .failureText = "Error importing Opera bookmarks",
     .reportsUnreadable = true},
    {.format = "icab",
     .titleKey = "MenuImportiCab",
     .action = "importiCab:",
     .messageKey = kPleaseSelectFile,
     .fileName = "iCab 4 Bookmarks",
     .browser = "de.icab.iCab",
     .name = "iCab",
     .failure = ImportFailure::IsFixed,
     .failureText = "Error importing iCab bookmarks"},
    {.format = "html",
     .titleKey = "MenuImportBookmarks",
     .action = "importBookmarks:",
     .messageKey = "SelectBookmarks",
     .filter = PanelFilter::HTML,
     .keepsFilter = true,
     .reportsEmpty = true},
    {.format = "html-links",
     .titleKey = "MenuImportHTML",
     .action = "importHTML:",
     .messageKey = "SelectHTML",
     .title = "Imported Bookmarks",
     .filter = PanelFilter::HTML},
    {.format = "xbel",
     .titleKey = "MenuImportXBEL",
     .action = "importXBEL:",
     .messageKey = "SelectXBEL",
     .filter = PanelFilter::XBEL},
    {.format = "text",
     .titleKey = "MenuScanText",
     .action = "scanText:",
     .messageKey = "SelectTEXT",
     .reportsEmpty = true},
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

std::span<const ImportSource> importSources() {
    return kSources;
}

const ImportSource* importSourceOf(std::string_view format) {
    const auto found = std::ranges::find(kSources, format, &ImportSource::format);
    return found == kSources.end() ? nullptr : &*found;
}

} // namespace tabulon
