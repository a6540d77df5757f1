#include "formats/ExportFormats.h"

#include "formats/export/NetscapeHTML.h"
#include "formats/export/PlainText.h"
#include "formats/export/XBEL.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tabulon {
namespace {

// The collation to sort with, if the settings want that.
std::optional<Collation> sorting(const BaseServices& services) {
    if (!services.defaults.boolForKey("ExportSortName"))
        return std::nullopt;
    return std::optional<Collation>(std::in_place, services.texts.locale());
}

const Collation* pointerTo(const std::optional<Collation>& collation) {
    return collation ? &*collation : nullptr;
}

Result<std::string> writeHTML(const Bookmark& master, const BaseServices& services, Progress* progress) {
    const std::optional<Collation> collation = sorting(services);
    return exportToHTML(master, {.sortByName = pointerTo(collation), .progress = progress});
}

Result<std::string> writeXBEL(const Bookmark& master, const BaseServices& services, Progress* progress) {
    const std::optional<Collation> collation = sorting(services);
    return exportToXBEL(master, {.sortByName = pointerTo(collation), .progress = progress});
}

Result<std::string> writeText(const Bookmark& master, const BaseServices& services, Progress* progress) {
    const std::optional<Collation> collation = sorting(services);
    const UserDefaults& defaults = services.defaults;
    return exportToText(master, {.name = defaults.boolForKey("ExportName"),
                                 .url = defaults.boolForKey("ExportURL"),
                                 .tags = defaults.boolForKey("ExportTags"),
                                 .note = defaults.boolForKey("ExportNote"),
                                 .skipFolders = defaults.boolForKey("SkipFolders"),
                                 .skipSeparators = defaults.boolForKey("SkipSeparators"),
                                 .sort = pointerTo(collation),
                                 .progress = progress});
}

constexpr auto kHTMLOptions = std::to_array<std::string_view>({"ExportSortName", "SaveAsHTML"});
constexpr auto kXBELOptions = std::to_array<std::string_view>({"ExportSortName"});
constexpr auto kTextOptions =
    std::to_array<std::string_view>({"ExportName", "ExportURL", "ExportTags", "ExportNote", "ExportSortName",
                                     "SkipFolders", "SkipSeparators"});

constexpr auto kFormats = std::to_array<ExportFormat>({
    {"html", "FormatHTML", "html", kHTMLOptions, writeHTML},
    {"xbel", "FormatXBEL", "xbel", kXBELOptions, writeXBEL},
    {"text", "FormatText", "txt", kTextOptions, writeText},
});

} // namespace

std::span<const ExportFormat> exportFormats() {
    return kFormats;
}

const ExportFormat& exportFormatForExtension(std::string_view extension) {
    const auto found = std::ranges::find(kFormats, extension, &ExportFormat::extension);
    return found == kFormats.end() ? kFormats.back() : *found;
}

const ExportFormat* exportFormatNamed(std::string_view name) {
    const auto found = std::ranges::find(kFormats, name, &ExportFormat::name);
    return found == kFormats.end() ? nullptr : &*found;
}

} // namespace tabulon
