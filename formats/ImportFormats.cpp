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

constexpr auto kImportFormats = std::to_array<ImportFormat>({
    {"safari", readSafariBookmarks},
    {"chrome", readChromiumBookmarks},
    {"chromium", readChromiumBookmarks},
    {"vivaldi", readChromiumBookmarks},
    {"brave", readChromiumBookmarks},
    {"edge", readChromiumBookmarks},
    {"opera", readOperaBookmarks},
    {"icab", readICabBookmarks},
    {"html", readBookmarkHTML},
    {"html-links", readPageFile},
    {"xbel", readXBEL},
    {"text", readText},
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
