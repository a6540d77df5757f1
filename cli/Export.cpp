// `export`: a document → a file of another format.
#include "cli/VerbOptions.h"
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

void addExport(CLI::App& tool, Action& action) {
    CLI::App* verb = tool.add_subcommand("export", "Write a document in another format");
    const auto options = std::make_shared<Options>();
    verb->add_option("--to", options->format, "The format to write")
        ->required()
        ->check(CLI::IsMember(namesOf(exportFormats())));
    addDocument(*verb, options->input);
    addFileOutput(*verb, options->output)->capture_default_str();
    setAction(*verb, action, options, exportFile);
}

} // namespace tabulon::cli
