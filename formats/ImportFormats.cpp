#include "formats/ImportFormats.h"

#include "formats/import/ChromiumJSON.h"
#include "formats/import/NetscapeScanner.h"
#include "formats/import/PageBookmarks.h"
#include "formats/import/PlistBookmarks.h"
#include "formats/import/TextScanner.h"
#include "formats/import/XBELReader.h"

#include <algorithm>
#include <array>

namespace tabulon {
namespace {

using enum EmptyImport;

constexpr auto kImportFormats = std::to_array<ImportFormat>({
    {"safari", IsADocument, readSafariBookmarks},
    {"chrome", IsADocument, readChromiumBookmarks},
    {"chromium", IsADocument, readChromiumBookmarks},
    {"vivaldi", IsADocument, readChromiumBookmarks},
    {"brave", IsADocument, readChromiumBookmarks},
    {"edge", IsADocument, readChromiumBookmarks},
    {"opera", IsADocument, readOperaBookmarks},
    {"icab", IsADocument, readICabBookmarks},
    {"html", IsReported, readBookmarkHTML},
    {"html-links", IsADocument, readPageFile},
    {"xbel", IsADocument, readXBEL},
    {"text", IsReported, readText},
});

} // namespace

std::span<const ImportFormat> importFormats() {
    return kImportFormats;
}

const ImportFormat* importFormatNamed(std::string_view name) {
    const auto found = std::ranges::find(kImportFormats, name, &ImportFormat::name);
    return found == kImportFormats.end() ? nullptr : &*found;
}

} // namespace tabulon
