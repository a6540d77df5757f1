// `show`: the tree as text, one line for each node. The JSON of `show --json` is in JsonTree.
#include "cli/JsonTree.h"
#include "cli/PlainText.h"
#include "cli/Verbs.h"
#include "model/OutputLimit.h"
#include "model/TreeWalk.h"

#include <algorithm>

namespace tabulon::cli {
namespace {

// The limit keeps a deep tree readable, and its listing linear in size.
constexpr int kDeepestIndent = 32;

struct Options {
    bool asJson = false;
    std::string input;
};

void appendLine(std::string& out, const Bookmark& node, int level) {
    out.append(2 * static_cast<std::size_t>(std::min(level, kDeepestIndent)), ' ');
    if (node.isSeparator()) {
        out += "--------\n";
        return;
    }
    out += onOneLine(node.itemName().view());
    if (node.isFolder())
        out += '/';
    if (!node.itemURL().isEmpty()) {
        out += "  <";
        out += onOneLine(node.itemURL().view());
        out += '>';
    }
    out += '\n';
}

Result<void> showForPeople(const Session& session, const std::string& input) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    const Bookmark& master = (*document)->getMaster();
    std::string out;
    int level = 0;
    bool isTooMuch = false;
    OutputLimit limit(master);
    appendLine(out, master, level++);
    walkBelow(
        master,
        [&](Bookmark& node) {
            isTooMuch = isTooMuch || limit.isPassedBy(out.size());
            if (!isTooMuch)
                appendLine(out, node, level);
            if (node.getChildren())
                ++level;
            return !isTooMuch;
        },
        [&](Bookmark&) { --level; });
    return isTooMuch ? failure(input + ": " + OutputLimit::failure().value().message)
                     : session.write("-", out);
}

Result<void> showAsJson(const Session& session, const std::string& input) {
    const auto document = session.readDocument(input);
    if (!document)
        return tl::unexpected(document.error());
    OutputLimit limit((*document)->getMaster());
    const std::string json = jsonFromTree((*document)->getMaster(), &limit);
    if (limit.isPassedBy(json.size()))
        return failure(input + ": " + OutputLimit::failure().value().message);
    return session.write("-", json + '\n');
}

Result<void> show(const Session& session, const Options& options) {
    return options.asJson ? showAsJson(session, options.input) : showForPeople(session, options.input);
}

} // namespace

void addShow(Tool tool) {
    Verb verb(tool, "show", "Print the tree of a document, one line for each node");
    const auto options = std::make_shared<Options>();
    verb.flag("--json", options->asJson, "Print the whole tree as JSON instead");
    verb.document(options->input);
    verb.setAction(options, show);
}

} // namespace tabulon::cli
