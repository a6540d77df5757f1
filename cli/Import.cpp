// `import`: a file of another format → a document.
#include "cli/Verbs.h"
#include "formats/ImportFormats.h"

namespace tabulon::cli {

Result<void> importFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output) {
    const Result<std::string> bytes = session.read(input);
    if (!bytes)
        return tl::unexpected(bytes.error());
    const ImportFormat& importer = *importFormatNamed(format);
    Result<Ref<Bookmark>> master = importer.read(*bytes, {session.services});
    if (!master)
        return failure(input + ": " + master.error().message);
    if (!(*master)->hasChildren() && importer.empty == EmptyImport::IsTold)
        return failure(input + ": " + session.services.texts.text("NoURLs"));
    (*master)->setShowHier(true);
    Document document(session.services);
    document.setMaster(std::move(*master));
    return session.writeDocument(output, document);
}

} // namespace tabulon::cli
