// `find`: the matches that the find bar of a window counts, and the nodes that it visits in one round.
#include "base/Settings.h"
#include "cli/NodeList.h"
#include "cli/PlainText.h"
#include "cli/Verbs.h"
#include "model/Finder.h"
#include "text/Collation.h"

namespace tabulon::cli {
namespace {

struct Options {
    std::string text;
    std::string input;
    bool asJson = false;
};

std::string lineFor(const Bookmark& node, const std::string& path) {
    std::string line = path + '\t' + onOneLine(node.itemName().view());
    if (!node.itemURL().isEmpty())
        line += "  <" + onOneLine(node.itemURL().view()) + '>';
    return line;
}

struct Findings {
    std::size_t count = 0;
    std::vector<const Bookmark*> visits; // in document order, some repeated
};

Findings findIn(Bookmark& root, const std::string& text, const BaseServices& services) {
    if (text.empty())
        return {};
    // A window with the column of tags searches names and tags together.
    FindPhases phases{.tagsWithName = valueOf(services.defaults, settings::kAddTagsColumn)};
    const Collation collation(services.texts.locale());
    Finder finder(phases, collation);
    const Finder::Start start = finder.findText(root, text);
    Findings findings{.count = start.count, .visits = {}};
    for (const Bookmark* node = start.matched ? finder.foundBookmark() : nullptr; node;
         node = finder.findFurther())
        findings.visits.push_back(node);
    return findings;
}

// Prints the number of matches of the text, and the nodes that finding visits in one round, one line for
// each. The empty text has no match.
Result<void> findInDocument(const Session& session, const Options& options) {
    const auto document = session.readDocument(options.input);
    if (!document)
        return tl::unexpected(document.error());
    Bookmark& root = (*document)->getMaster();
    const Findings findings = findIn(root, options.text, session.services);
    Lines lines(session);
    lines.add(options.asJson ? "{\"matches\": " + std::to_string(findings.count) + "}"
                             : session.services.texts.format("%d matches", findings.count));
    const auto added = addNodes(root, findings.visits, [&](const Bookmark& node, const std::string& path) {
        return options.asJson ? lines.addJson(node, path) : lines.add(lineFor(node, path));
    });
    return added ? lines.finish() : failure(options.input + ": " + added.error().message);
}

} // namespace

void addFind(Tool tool) {
    Verb verb(tool, "find", "Find a text in a document, as the find bar does");
    const auto options = std::make_shared<Options>();
    verb.flag("--json", options->asJson, "Print each line as a JSON object");
    verb.argument("TEXT", options->text, "The text to find, ignoring case and accents");
    verb.document(options->input);
    verb.setAction(options, findInDocument);
}

} // namespace tabulon::cli
