// `remove`: removes the links of some statuses from a document, or moves them into its Waste Basket.
#include "cli/Verbs.h"
#include "model/StatusRemoval.h"

namespace tabulon::cli {
namespace {

struct Options {
    std::vector<std::string> statuses;
    bool move = false;
    std::string input;
    std::string output;
};

RemovalOptions removalOptions(const Options& options) {
    RemovalOptions removal{.move = options.move};
    for (const std::string& status : options.statuses) {
        removal.duplicates |= status == "duplicate";
        removal.broken |= status == "broken";
        removal.unknown |= status == "unknown";
    }
    return removal;
}

// Writes the document, and a summary to standard error.
Result<void> removeFromDocument(const Session& session, const Options& options) {
    const auto document = session.readDocument(options.input);
    if (!document)
        return tl::unexpected(document.error());
    const Localization& texts = session.services.texts;
    moveWasteBasketDown((*document)->getMaster(), texts);
    const Date now = Date::now(session.services.clock);
    const RemovalOptions kinds = removalOptions(options);
    const Removal removal = removeByStatus((*document)->getMaster(), kinds, texts, now);
    Result<void> done = session.writeDocument(options.output, **document);
    if (done)
        session.inform(removalSummary(kinds, removal.items.size(), texts));
    return done;
}

} // namespace

void addRemove(Tool tool) {
    Verb verb(tool, "remove", "Write a document without the links of the given statuses");
    const auto options = std::make_shared<Options>();
    verb.list("--status", options->statuses,
              "duplicate, broken or unknown, or several of these joined by commas")
        .type("STATUS")
        .required()
        .oneOf({"duplicate", "broken", "unknown"});
    verb.flag("--move", options->move, "Move the links into the Waste Basket instead");
    verb.document(options->input);
    verb.documentOutput(options->output).required();
    verb.setAction(options, removeFromDocument);
}

} // namespace tabulon::cli
