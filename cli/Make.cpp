// `make`: the JSON of `show --json` → a document.
#include "cli/JsonTree.h"
#include "cli/Verbs.h"

namespace tabulon::cli {
namespace {

struct Options {
    std::string input;
    std::string output;
};

Result<void> makeFromJson(const Session& session, const Options& options) {
    const Result<std::string> bytes = session.read(options.input);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<Ref<Bookmark>> master = treeFromJson(*bytes);
    if (!master)
        return failure(options.input + ": " + master.error().message);
    Document document(session.services);
    document.setMaster(std::move(*master));
    return session.writeDocument(options.output, document);
}

} // namespace

void addMake(Tool tool) {
    Verb verb(tool, "make", "Build a document from the JSON that show --json prints");
    const auto options = std::make_shared<Options>();
    verb.argument("INPUT", options->input, "The JSON file to read, - for standard input");
    verb.documentOutput(options->output).required();
    verb.setAction(options, makeFromJson);
}

} // namespace tabulon::cli
