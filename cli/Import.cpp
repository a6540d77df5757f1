// `import`: a file of another format → a document.
#include "cli/Verbs.h"
#include "formats/import/NetscapeScanner.h"

#include <algorithm>
#include <array>

namespace tabulon::cli {
namespace {

struct Importer {
    std::string_view name;
    /// The new root folder, or why there is none.
    Result<Ref<Bookmark>> (*read)(std::string_view bytes, const BaseServices& services);
};

Result<Ref<Bookmark>> importHTML(std::string_view bytes, const BaseServices& services) {
    NetscapeScanner scanner;
    Ref<Bookmark> master = scanner.scan(bytes, services);
    if (!master->hasChildren())
        return failure(services.texts.text("NoURLs"));
    return master;
}

constexpr auto kImporters = std::to_array<Importer>({
    {"html", importHTML},
});

} // namespace

std::vector<std::string> importFormats() {
    std::vector<std::string> names;
    names.reserve(kImporters.size());
    for (const Importer& importer : kImporters)
        names.emplace_back(importer.name);
    return names;
}

Result<void> importFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output) {
    const auto importer = std::find_if(kImporters.begin(), kImporters.end(),
                                       [&](const Importer& each) { return each.name == format; });
    const Result<std::string> bytes = session.read(input);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<Ref<Bookmark>> master = importer->read(*bytes, session.services);
    if (!master)
        return failure(input + ": " + master.error().message);
    (*master)->setShowHier(true);
    Document document(session.services);
    document.setMaster(std::move(*master));
    return session.write(output, document.dataOfType(kDocumentType));
}

} // namespace tabulon::cli
