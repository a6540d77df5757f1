// `sort`: sorts the whole tree of a document.
#include "cli/VerbOptions.h"
#include "model/TreeSort.h"
#include "text/Collation.h"

#include <map>

namespace tabulon::cli {
namespace {

struct Options {
    std::string key;
    bool descending = false;
    std::string input;
    std::string output;
};

const std::map<std::string, SortKey>& sortKeys() {
    static const std::map<std::string, SortKey> keys = {{"name", SortKey::Name},
                                                        {"url", SortKey::URL},
                                                        {"tags", SortKey::Tags},
                                                        {"added", SortKey::DateAdded},
                                                        {"modified", SortKey::DateModified},
                                                        {"opened", SortKey::DateLastOpened}};
    return keys;
}

Result<void> sortDocument(const Session& session, const Options& options) {
    const auto document = session.readDocument(options.input);
    if (!document)
        return tl::unexpected(document.error());
    const Collation collation(session.services.texts.locale());
    const auto direction = options.descending ? SortDirection::Descending : SortDirection::Ascending;
    sortFolder((*document)->getMaster(), sortKeys().at(options.key), direction, collation);
    return session.writeDocument(options.output, **document);
}

} // namespace

void addSort(CLI::App& tool, Action& action) {
    CLI::App* verb = tool.add_subcommand("sort", "Write a document with its whole tree sorted");
    const auto options = std::make_shared<Options>();
    verb->add_option("--by", options->key, "The property to sort by")
        ->type_name("KEY")
        ->required()
        ->check(CLI::IsMember(sortKeys()));
    addFlag(*verb, "--descending", options->descending, "Sort in descending order; folders stay first");
    addDocument(*verb, options->input);
    addDocumentOutput(*verb, options->output)->required();
    setAction(*verb, action, options, sortDocument);
}

} // namespace tabulon::cli
