#include "formats/ImportFormats.h"

#include "formats/import/ChromiumJSON.h"
#include "formats/import/PlistBookmarks.h"
#include "formats/import/TextScanner.h"
#include "formats/import/XBELReader.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

Result<Ref<Bookmark>> readBookmarkHTML(std::string_view bytes, const ImportServices& services) {
    return services.netscape.scan(bytes, services.base);
}

Result<Ref<Bookmark>> readText(std::string_view bytes, const ImportServices& services) {
    return scanText(bytes, services.base);
}

Result<Ref<Bookmark>> readXBELFile(std::string_view bytes, const ImportServices& services) {
    return readXBEL(bytes, services.base);
}

Result<Ref<Bookmark>> readSafari(std::string_view bytes, const ImportServices& services) {
    return readSafariBookmarks(bytes, services.base);
}

Result<Ref<Bookmark>> readICab(std::string_view bytes, const ImportServices& services) {
    return readICabBookmarks(bytes, services.base);
}

Result<Ref<Bookmark>> readChromium(std::string_view bytes, const ImportServices& services) {
    return readChromiumBookmarks(bytes, services.base);
}

Result<Ref<Bookmark>> readOpera(std::string_view bytes, const ImportServices& services) {
    return readOperaBookmarks(bytes, services.base);
}

constexpr auto kXBELExtensions = std::to_array<std::string_view>({"xbel"});
constexpr auto kHTMLExtensions = std::to_array<std::string_view>({"html", "htm"});

constexpr auto kFormats = std::to_array<ImportFormat>({
    {"html", "FormatHTML", kHTMLExtensions, EmptyImport::IsTold, readBookmarkHTML},
    {"xbel", "FormatXBEL", kXBELExtensions, EmptyImport::IsADocument, readXBELFile},
    {"safari", "Safari", {}, EmptyImport::IsADocument, readSafari},
    {"chrome", "Chrome", {}, EmptyImport::IsADocument, readChromium},
    {"chromium", "Chromium", {}, EmptyImport::IsADocument, readChromium},
    {"vivaldi", "Vivaldi", {}, EmptyImport::IsADocument, readChromium},
    {"brave", "Brave", {}, EmptyImport::IsADocument, readChromium},
    {"edge", "Edge", {}, EmptyImport::IsADocument, readChromium},
    {"opera", "Opera", {}, EmptyImport::IsADocument, readOpera},
    {"icab", "iCab", {}, EmptyImport::IsADocument, readICab},
    {"text", "FormatText", {}, EmptyImport::IsTold, readText},
});

} // namespace

std::span<const ImportFormat> importFormats() {
    return kFormats;
}

const ImportFormat* importFormatNamed(std::string_view name) {
    const auto found = std::ranges::find(kFormats, name, &ImportFormat::name);
    return found == kFormats.end() ? nullptr : &*found;
}

} // namespace tabulon
