#include "formats/ExportFormats.h"

#include "base/Settings.h"
#include "formats/export/NetscapeHTML.h"
#include "formats/export/PlainText.h"
#include "formats/export/XBEL.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tabulon {
namespace {

// Returns the collation of the user's language, or `nullopt` where the settings say not to sort.
std::optional<Collation> sorting(const BaseServices& services) {
    if (!valueOf(services.defaults, settings::kExportSortName))
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
    return exportToText(master, {.name = valueOf(defaults, settings::kExportName),
                                 .url = valueOf(defaults, settings::kExportURL),
                                 .tags = valueOf(defaults, settings::kExportTags),
                                 .note = valueOf(defaults, settings::kExportNote),
                                 .skipFolders = valueOf(defaults, settings::kSkipFolders),
                                 .skipSeparators = valueOf(defaults, settings::kSkipSeparators),
                                 .sort = pointerTo(collation),
                                 .progress = progress});
}

constexpr auto kHTMLOptions =
    std::to_array<std::string_view>({settings::kExportSortName.key, settings::kSaveAsHTML.key});
constexpr auto kXBELOptions = std::to_array<std::string_view>({settings::kExportSortName.key});
constexpr auto kTextOptions = std::to_array<std::string_view>(
    {settings::kExportName.key, settings::kExportURL.key, settings::kExportTags.key,
     settings::kExportNote.key, settings::kExportSortName.key, settings::kSkipFolders.key,
     settings::kSkipSeparators.key});

constexpr auto kExportFormats = std::to_array<ExportFormat>({
    {"html", "FormatHTML", "html", kHTMLOptions, writeHTML},
    {"xbel", "FormatXBEL", "xbel", kXBELOptions, writeXBEL},
    {"text", "FormatText", "txt", kTextOptions, writeText},
});

} // namespace

std::span<const ExportFormat> exportFormats() {
    return kExportFormats;
}

const ExportFormat& exportFormatForExtension(std::string_view extension) {
    const auto found = std::ranges::find(kExportFormats, extension, &ExportFormat::extension);
    return found == kExportFormats.end() ? kExportFormats.back() : *found;
}

const ExportFormat* exportFormatNamed(std::string_view name) {
    const auto found = std::ranges::find(kExportFormats, name, &ExportFormat::name);
    return found == kExportFormats.end() ? nullptr : &*found;
}

} // namespace tabulon
