// `sort`: sorts the whole tree of a document.
#include "cli/Verbs.h"
#include "model/TreeSort.h"
#include "text/Collation.h"

#include <algorithm>

namespace tabulon::cli {
namespace {

struct Options {
    std::string key;
    bool descending = false;
    std::string input;
    std::string output;
};

struct NamedKey {
    const char* name;
    SortKey key;
};

// In the order of the help.
constexpr NamedKey kOrders[] = {
    {"added", SortKey::DateAdded}, {"modified", SortKey::DateModified},
    {"name", SortKey::Name},       {"opened", SortKey::DateLastOpened},
    {"tags", SortKey::Tags},       {"url", SortKey::URL},
};

// Requires: the name is in `kOrders`.
SortKey keyNamed(const std::string& name) {
    return std::ranges::find(kOrders, name, &NamedKey::name)->key;
}

Result<void> sortDocument(const Session& session, const Options& options) {
    const auto document = session.readDocument(options.input);
    if (!document)
        return tl::unexpected(document.error());
    const Collation collation(session.services.texts.locale());
    const auto direction = options.descending ? SortDirection::Descending : SortDirection::Ascending;
    sortFolder((*document)->getMaster(), keyNamed(options.key), direction, collation);
    return session.writeDocument(options.output, **document);
}

} // namespace

void addSort(Tool tool) {
    Verb verb(tool, "sort", "Write a document with its whole tree sorted");
    const auto options = std::make_shared<Options>();
    verb.option("--by", options->key, "The property to sort by")
        .type("KEY")
        .required()
        .oneOf(namesOf(kOrders));
    verb.flag("--descending", options->descending, "Sort in descending order; folders stay first");
    verb.document(options->input);
    verb.documentOutput(options->output).required();
    verb.setAction(options, sortDocument);
}

} // namespace tabulon::cli
