// `find`: the matches that the find bar of a window counts, and the nodes that it visits in one round.
#include "base/Settings.h"
#include "cli/NodeList.h"
#include "cli/PlainText.h"
#include "cli/Verbs.h"
#include "model/Finder.h"
#include "text/Collation.h"

namespace tabulon::cli {
namespace {

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

} // namespace

Result<void> findInDocument(const Session& session, const std::string& text, const std::string& input,
                            bool asJson) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    Bookmark& root = (*document)->getMaster();
    const Findings findings = findIn(root, text, session.services);
    Lines lines(session);
    lines.add(asJson ? "{\"matches\": " + std::to_string(findings.count) + "}"
                     : session.services.texts.format("%d matches", findings.count));
    const auto added = addNodes(root, findings.visits, [&](const Bookmark& node, const std::string& path) {
        return asJson ? lines.addJson(node, path) : lines.add(lineFor(node, path));
    });
    return added ? lines.finish() : failure(input + ": " + added.error().message);
}

} // namespace tabulon::cli
