// `duplicates`: the links of a document whose URL is that of an earlier link.
#include "model/Duplicates.h"

#include "cli/NodeList.h"
#include "cli/PlainText.h"
#include "cli/Verbs.h"
#include "model/StatusRemoval.h"

namespace tabulon::cli {
namespace {

struct Options {
    std::string input;
    bool asJson = false;
    bool mark = false;
    bool deletes = false;
    std::string output;
};

// Prints path, TAB and URL of every duplicate, or its JSON, one line for each. The Waste Basket counts as the
// last item of the document: of two equal links, of which one is in it, that one is the duplicate.
Result<void> listDuplicates(const Session& session, const Options& options) {
    const auto document = session.readDocument(options.input);
    if (!document)
        return tl::unexpected(document.error());
    Bookmark& root = (*document)->getMaster();
    moveWasteBasketDown(root, session.services.texts);
    clearDuplicateStatus(root);
    const std::vector<Bookmark*> duplicates = markDuplicates(root);
    Lines lines(session);
    const auto added = addNodes(
        root, {duplicates.begin(), duplicates.end()}, [&](const Bookmark& node, const std::string& path) {
            return options.asJson ? lines.addJson(node, path)
                                  : lines.add(path + '\t' + escapingControls(node.itemURL().view()));
        });
    return added ? lines.finish() : failure(options.input + ": " + added.error().message);
}

// Writes the document with its duplicates marked, or without them and a summary to standard error.
Result<void> writeDuplicates(const Session& session, const Options& options) {
    const auto read = session.readDocument(options.input);
    if (!read)
        return tl::unexpected(read.error());
    Document& document = **read;
    const Localization& texts = session.services.texts;
    if (options.mark)
        moveWasteBasketDown(document.getMaster(), texts);
    clearDuplicateStatus(document.getMaster());
    markDuplicates(document.getMaster());
    if (options.mark)
        return session.writeDocument(options.output, document);
    constexpr RemovalOptions kDuplicates{.duplicates = true};
    const Date now = Date::now(session.services.clock);
    const Removal removal = removeByStatus(document.getMaster(), kDuplicates, texts, now);
    Result<void> done = session.writeDocument(options.output, document);
    if (done)
        session.inform(removalSummary(kDuplicates, removal.items.size(), texts));
    return done;
}

bool writes(const Options& options) {
    return options.mark || options.deletes;
}

Result<void> performDuplicates(const Session& session, const Options& options) {
    return writes(options) ? writeDuplicates(session, options) : listDuplicates(session, options);
}

} // namespace

void addDuplicates(Tool tool) {
    Verb verb(tool, "duplicates", "List the links whose URL is that of an earlier link");
    const auto options = std::make_shared<Options>();
    const Option json = verb.flag("--json", options->asJson, "Print each link as a JSON object");
    Option mark = verb.flag("--mark", options->mark, "Write the document with the duplicates marked instead");
    Option deletes =
        verb.flag("--delete", options->deletes, "Write the document without the duplicates instead");
    mark.excludes(deletes).excludes(json);
    deletes.excludes(json);
    verb.document(options->input);
    const Option output = verb.documentOutput(options->output);
    mark.needs(output);
    deletes.needs(output);
    verb.setAction(options, performDuplicates, [options, output] {
        return output.isGiven() && !writes(*options) ? "-o requires --mark or --delete" : "";
    });
}

} // namespace tabulon::cli
