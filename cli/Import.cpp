// `import`: a file of another format → a document.
#include "app/ImportSource.h"
#include "cli/Verbs.h"
#include "formats/ImportFormats.h"

namespace tabulon::cli {
namespace {

struct Options {
    std::string format;
    std::string input;
    std::string output = "-";
};

// Fails also where the file contains no link and the Import menu would report that.
Result<void> importFile(const Session& session, const Options& options) {
    const Result<std::string> bytes = session.read(options.input);
    if (!bytes)
        return tl::unexpected(bytes.error());
    const ImportFormat& importer = *importFormatNamed(options.format);
    Result<Ref<Bookmark>> master = importer.read(*bytes, {session.services});
    if (!master)
        return failure(options.input + ": " + master.error().message);
    if (!(*master)->hasChildren() && importSourceOf(importer.name)->reportsEmpty)
        return failure(options.input + ": " + session.services.texts.text("NoURLs"));
    (*master)->setShowHier(true);
    Document document(session.services);
    document.setMaster(std::move(*master));
    return session.writeDocument(options.output, document);
}

} // namespace

void addImport(Tool tool) {
    Verb verb(tool, "import", "Read a file of another format and write it as a document");
    const auto options = std::make_shared<Options>();
    verb.option("--from", options->format, "The format of INPUT").required().oneOf(namesOf(importFormats()));
    verb.argument("INPUT", options->input, "The file to read, - for standard input");
    verb.documentOutput(options->output).showDefault();
    verb.setAction(options, importFile);
}

} // namespace tabulon::cli
