// `compare`: the changes from one document to another, one line for each.
#include "cli/JsonTree.h"
#include "cli/Lines.h"
#include "cli/NodePath.h"
#include "cli/PlainText.h"
#include "cli/Verbs.h"
#include "model/OutputLimit.h"
#include "model/TreeComparison.h"
#include "model/TreeWalk.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace tabulon::cli {
namespace {

struct Options {
    std::string before;
    std::string after;
    bool asJson = false;
};

// The index of each node in its list, for the paths of single nodes.
class Places {
public:
    explicit Places(const Bookmark& root) : root_(root) {
        places_.emplace(&root, Place{});
        number(root);
        walkBelow(root, [this](const Bookmark& node) {
            number(node);
            return true;
        });
    }

    std::string pathOf(const Bookmark& node) const {
        std::vector<std::size_t> indexes;
        for (const Bookmark* each = &node; each != &root_; each = each->getParent())
            indexes.push_back(places_.at(each).index);
        std::ranges::reverse(indexes);
        return fmt::format("{}", fmt::join(indexes, "/"));
    }

    // Does not make the path: in a deep tree, all paths together are much longer than the document.
    std::size_t lengthOfPath(const Bookmark& node) const { return places_.at(&node).lengthOfPath; }

private:
    struct Place {
        std::size_t index = 0;
        std::size_t lengthOfPath = 0; // in bytes, including a slash at the end
    };

    void number(const Bookmark& parent) {
        if (!parent.getChildren())
            return;
        const std::size_t length = lengthOfPath(parent);
        std::size_t index = 0;
        for (const Bookmark* child : *parent.getChildren()) {
            places_.emplace(child, Place{index, length + fmt::formatted_size("{}/", index)});
            ++index;
        }
    }

    const Bookmark& root_;
    std::unordered_map<const Bookmark*, Place> places_;
};

constexpr auto kFields = std::to_array<std::pair<std::uint8_t, const char*>>({
    {kChangedURL, "url"},
    {kChangedNote, "note"},
    {kChangedTags, "tags"},
    {kChangedLabel, "label"},
    {kChangedOther, "other"},
});

std::vector<std::string> namesOfFields(std::uint8_t fields, const char* quote) {
    std::vector<std::string> names;
    for (const auto& [field, name] : kFields)
        if ((fields & field) != 0)
            names.push_back(std::string(quote) + name + quote);
    return names;
}

// One line of the listing. A node with several changes has several lines.
struct Change {
    const char* kind;
    const TreeDifference& difference;
    const Bookmark& node; // the node after the change; the one before it if it was removed
};

class Listing {
public:
    Listing(const Session& session, const Bookmark& before, const Bookmark& after)
        : lines_(session), before_(before), after_(after), limitBefore_(before), limitAfter_(after) {}

    // Prints the changes. Fails, and prints no line, where the lines exceed the limits of both documents.
    Result<void> print(const TreeComparison& comparison, bool asJson) {
        std::uint64_t bytes = 0;
        forEachChange(comparison, [&](const Change& change) {
            bytes += bytesOf(change);
            return true;
        });
        if (limitBefore_.isPassedBy(bytes) && limitAfter_.isPassedBy(bytes))
            return OutputLimit::failure();
        forEachChange(comparison, [&](const Change& change) {
            return lines_.add(asJson ? json(change) : plain(change));
        });
        return lines_.finish();
    }

private:
    // Calls `visit` with each change until it returns false.
    template <class Visit>
    static void forEachChange(const TreeComparison& comparison, const Visit& visit) {
        for (const TreeDifference& difference : comparison.differences()) {
            const Bookmark* node = difference.isRemoved() ? difference.before : difference.after;
            if (!node) // cannot happen: one of them is set
                continue;
            for (const char* kind : kindsOf(difference))
                if (!visit(Change{kind, difference, *node}))
                    return;
        }
    }

    static std::vector<const char*> kindsOf(const TreeDifference& difference) {
        if (difference.isAdded())
            return {"added"};
        if (difference.isRemoved())
            return {"removed"};
        std::vector<const char*> kinds;
        if (difference.moved)
            kinds.push_back("moved");
        if (difference.renamed)
            kinds.push_back("renamed");
        if (difference.edited != 0)
            kinds.push_back("edited");
        return kinds;
    }

    // Returns the bytes of the texts and paths in the change's line.
    std::uint64_t bytesOf(const Change& change) const {
        const Bookmark* before = change.difference.before;
        const Bookmark* after = change.difference.after;
        std::uint64_t bytes = change.node.itemName().view().size() + change.node.itemURL().view().size();
        bytes += after ? after_.lengthOfPath(*after) : 0;
        bytes += before ? before_.lengthOfPath(*before) : 0;
        if (before && std::string_view(change.kind) == "renamed")
            bytes += before->itemName().view().size();
        return bytes;
    }

    std::string pathOf(const Change& change) const {
        return change.difference.after ? after_.pathOf(change.node) : before_.pathOf(change.node);
    }

    std::string plain(const Change& change) const {
        const Bookmark& node = change.node;
        const std::string_view kind = change.kind;
        std::string line = fmt::format("{}\t{}\t{}", kind, pathOf(change), onOneLine(node.itemName().view()));
        if (!node.itemURL().isEmpty())
            line += "  <" + onOneLine(node.itemURL().view()) + '>';
        if (kind == "moved")
            line += "  (was at " + before_.pathOf(*change.difference.before) + ")";
        if (kind == "renamed")
            line += "  (was " + onOneLine(change.difference.before->itemName().view()) + ")";
        if (kind == "edited")
            line += fmt::format("  ({})", fmt::join(namesOfFields(change.difference.edited, ""), ", "));
        return line;
    }

    std::string json(const Change& change) const {
        const std::string_view kind = change.kind;
        std::string line = fmt::format(R"({{"change":"{}","path":"{}")", kind, pathOf(change));
        if (!change.difference.isAdded() && !change.difference.isRemoved())
            line += fmt::format(R"(,"oldPath":"{}")", before_.pathOf(*change.difference.before));
        line += ",\"name\":";
        appendJsonText(line, change.node.itemName());
        if (kind == "renamed") {
            line += ",\"oldName\":";
            appendJsonText(line, change.difference.before->itemName());
        }
        line += ",\"url\":";
        appendJsonText(line, change.node.itemURL());
        if (kind == "edited")
            line += fmt::format(R"(,"fields":[{}])",
                                fmt::join(namesOfFields(change.difference.edited, "\""), ","));
        return line + "}";
    }

    Lines lines_;
    const Places before_;
    const Places after_;
    OutputLimit limitBefore_;
    OutputLimit limitAfter_;
};

// Version control passes /dev/null for a file that does not exist.
Result<std::unique_ptr<Document>> readOrEmpty(const Session& session, const std::string& path) {
    if (path == "/dev/null")
        return std::make_unique<Document>(session.services);
    return session.readDocument(path);
}

// Prints the changes from one document to the other (TreeComparison.h), one line for each: its kind, the path
// after the change (for a removed node: before), the name and the address.
Result<void> compareDocuments(const Session& session, const Options& options) {
    const auto old = readOrEmpty(session, options.before);
    if (!old)
        return tl::unexpected(old.error());
    const auto now = readOrEmpty(session, options.after);
    if (!now)
        return tl::unexpected(now.error());
    const Bookmark& oldRoot = (*old)->getMaster();
    const Bookmark& newRoot = (*now)->getMaster();
    return Listing(session, oldRoot, newRoot).print(TreeComparison(oldRoot, newRoot), options.asJson);
}

} // namespace

void addCompare(Tool tool) {
    Verb verb(tool, "compare", "List the changes from one document to another");
    const auto options = std::make_shared<Options>();
    verb.flag("--json", options->asJson, "Print each change as a JSON object");
    verb.argument("OLD", options->before, "The old document, - for standard input");
    verb.argument("NEW", options->after, "The new document, - for standard input");
    verb.setAction(options, compareDocuments, [options] {
        const bool isTwice = options->before == "-" && options->after == "-";
        return isTwice ? "OLD and NEW cannot both be standard input" : "";
    });
}

} // namespace tabulon::cli
