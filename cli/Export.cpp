// `export`: a document → a file of another format.
#include "cli/Verbs.h"
#include "formats/ExportFormats.h"

namespace tabulon::cli {
namespace {

struct Options {
    std::string format;
    std::string input;
    std::string output = "-";
};

Result<void> exportFile(const Session& session, const Options& options) {
    const auto document = session.readDocument(options.input);
    if (!document)
        return tl::unexpected(document.error());
    const Result<std::string> bytes =
        exportFormatNamed(options.format)->write((*document)->getMaster(), session.services, nullptr);
    if (!bytes)
        return failure(options.input + ": " + bytes.error().message);
    return session.write(options.output, *bytes);
}

} // namespace

void addExport(Tool tool) {
    Verb verb(tool, "export", "Write a document in another format");
    const auto options = std::make_shared<Options>();
    verb.option("--to", options->format, "The format to write").required().oneOf(namesOf(exportFormats()));
    verb.document(options->input);
    verb.fileOutput(options->output).showDefault();
    verb.setAction(options, exportFile);
}

} // namespace tabulon::cli
