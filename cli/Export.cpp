// `export`: a document → a file of another format.
#include "cli/Verbs.h"
#include "formats/export/NetscapeHTML.h"

#include <algorithm>
#include <array>

namespace tabulon::cli {
namespace {

struct Exporter {
    std::string_view name;
    Result<std::string> (*write)(const Bookmark& master, const BaseServices& services);
};

Result<std::string> exportHTML(const Bookmark& master, const BaseServices& services) {
    const Collation collation(services.texts.locale());
    const bool sorted = services.defaults.boolForKey("ExportSortName");
    return exportToHTML(master, {.sortByName = sorted ? &collation : nullptr});
}

constexpr auto kExporters = std::to_array<Exporter>({
    {"html", exportHTML},
});

} // namespace

std::vector<std::string> exportFormats() {
    std::vector<std::string> names;
    names.reserve(kExporters.size());
    for (const Exporter& exporter : kExporters)
        names.emplace_back(exporter.name);
    return names;
}

Result<void> exportFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output) {
    const auto exporter = std::find_if(kExporters.begin(), kExporters.end(),
                                       [&](const Exporter& each) { return each.name == format; });
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    const Result<std::string> bytes = exporter->write((*document)->getMaster(), session.services);
    if (!bytes)
        return failure(input + ": " + bytes.error().message);
    return session.write(output, *bytes);
}

} // namespace tabulon::cli
