// `link`: one bookmark of a document → a single-link file.
#include "cli/NodePath.h"
#include "cli/VerbOptions.h"
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

// Returns what is wrong with the form of a path, or an empty text.
std::string faultOfPath(const std::string& path) {
    return isNodePath(path) ? "" : "must be child indexes joined by /, such as 0/3/1";
}

} // namespace

void addLink(CLI::App& tool, Action& action) {
    CLI::App* verb = tool.add_subcommand("link", "Write one bookmark of a document as a single-link file");
    const auto options = std::make_shared<Options>();
    verb->add_option("--path", options->path,
                     "The path of the bookmark: child indexes joined by /, such as 0/3/1")
        ->type_name("PATH")
        ->required()
        ->check(faultOfPath);
    addDocument(*verb, options->input);
    addFileOutput(*verb, options->output)->required();
    setAction(*verb, action, options, exportLink);
}

} // namespace tabulon::cli
