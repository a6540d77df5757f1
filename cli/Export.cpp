// `export`: a document → a file of another format.
#include "cli/Verbs.h"
#include "formats/ExportFormats.h"

namespace tabulon::cli {

Result<void> exportFile(const Session& session, const std::string& format, const std::string& input,
                        const std::string& output) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    const Result<std::string> bytes =
        exportFormatNamed(format)->write((*document)->getMaster(), session.services, nullptr);
    if (!bytes)
        return failure(input + ": " + bytes.error().message);
    return session.write(output, *bytes);
}

} // namespace tabulon::cli
