// `link`: one bookmark of a document → a single-link file.
#include "cli/NodePath.h"
#include "cli/Verbs.h"
#include "formats/export/LinkFile.h"

namespace tabulon::cli {
namespace {

struct Options {
    std::string path;
    std::string input;
    std::string output;
};

// Fails also where the document has no node at the path, or the node has no URL.
Result<void> exportLink(const Session& session, const Options& options) {
    const auto document = session.readDocument(options.input);
    if (!document)
        return tl::unexpected(document.error());
    const Bookmark* node = nodeAt((*document)->getMaster(), options.path);
    if (!node)
        return failure(options.input + ": There is no node at the path " + options.path + ".");
    const Result<std::string> bytes = exportToLinkFile(*node);
    if (!bytes)
        return failure(options.input + ": " + bytes.error().message);
    return session.write(options.output, *bytes);
}

} // namespace

void addLink(Tool tool) {
    Verb verb(tool, "link", "Write one bookmark of a document as a single-link file");
    const auto options = std::make_shared<Options>();
    verb.path(options->path);
    verb.document(options->input);
    verb.fileOutput(options->output).required();
    verb.setAction(options, exportLink);
}

} // namespace tabulon::cli
