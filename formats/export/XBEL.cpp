#include "formats/export/XBEL.h"

#include "formats/export/ExportSteps.h"
#include "formats/export/ExportText.h"
#include "formats/export/SiblingOrder.h"
#include "model/OutputLimit.h"
#include "model/TreeWalk.h"
#include "text/XmlEntities.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tabulon {
namespace {

constexpr std::string_view kXbelHeader = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                         "<!DOCTYPE xbel>\n"
                                         "<!-- Created by Tabulon - https://tabulon.example/ -->\n"
                                         "<xbel version=\"1.0\">\n";
constexpr std::string_view kXbelEnd = "</xbel>\n";

// One export. The open lists are a stack; `pending_` contains the nodes that are not written yet, the next
// one last.
class XBELExport {
public:
    XBELExport(const Bookmark& master, const XBELExportOptions& options)
        : master_(master), options_(options),
          steps_(options.progress, master,
                 options.sortByName ? ExportOrder::Sorted : ExportOrder::AsInTheTree) {}

    Result<std::string> run() {
        text_ = kXbelHeader;
        beginList(master_);
        while (!lists_.empty()) {
            if (text_.size() + kXbelEnd.size() > options_.mostBytes)
                return failure("The bookmarks are too many, too long or nested too deep for one XBEL file.");
            if (pending_.size() == lists_.back()) {
                endList();
                continue;
            }
            const Bookmark& node = *pending_.back();
            pending_.pop_back();
            writeNode(node);
            if (limit_.isPassedBy(text_.size()))
                return OutputLimit::failure();
            steps_.nodeWritten();
            if (steps_.isCancelled())
                return cancelledByUser();
        }
        text_ += kXbelEnd;
        return std::move(text_);
    }

private:
    // Returns the indent of the nodes in the innermost list: 0 at the top.
    int indent() const { return static_cast<int>(lists_.size()) - 1; }

    void beginList(const Bookmark& folder) {
        const std::size_t first = pending_.size();
        if (const ChildList* children = folder.getChildren())
            for (const Bookmark* child : *children)
                pending_.push_back(child);
        if (options_.sortByName)
            sortNodes(std::span(pending_).subspan(first), *options_.sortByName, steps_);
        std::reverse(pending_.begin() + static_cast<std::ptrdiff_t>(first), pending_.end());
        lists_.push_back(first);
    }

    void endList() {
        lists_.pop_back();
        if (!lists_.empty())
            line("</folder>");
    }

    void writeNode(const Bookmark& node) {
        if (node.isSeparator()) {
            line("<separator>");
            line("</separator>");
        } else if (node.isFolder()) {
            writeFolder(node);
        } else {
            writeLink(node);
        }
    }

    void writeFolder(const Bookmark& folder) {
        line(folder.showHier() ? "<folder folded=\"no\">" : "<folder folded=\"yes\">");
        writeTitle(folder);
        if (!folder.itemNote().isEmpty())
            element("desc", escapeXmlEntities(tidyPart(folder.itemNote().view())));
        beginList(folder);
    }

    void writeLink(const Bookmark& link) {
        doIndent(text_, indent());
        text_ += "<bookmark";
        if (!link.itemURL().isEmpty()) {
            text_ += " href=\"";
            appendXmlEscaped(text_, link.itemURL().view());
            text_ += '"';
        }
        text_ += ">\n";
        writeTitle(link);
        // Escaped before and after the note becomes one line, as readers of these files expect: the note of a
        // link is escaped twice, that of a folder once.
        if (!link.itemNote().isEmpty())
            element("desc", escapeXmlEntities(tidyPart(escapeXmlEntities(link.itemNote().view()))));
        if (!link.itemTags().isEmpty())
            writeTags(link);
        line("</bookmark>");
    }

    void writeTitle(const Bookmark& node) {
        if (!node.itemName().isEmpty())
            element("title", escapeXmlEntities(node.itemName().view()));
    }

    void writeTags(const Bookmark& link) {
        line("<info>");
        doIndent(text_, indent() + 1);
        text_ += "<metadata owner=\"";
        text_ += kXBELTagsOwner;
        text_ += "\">";
        appendXmlEscaped(text_, link.itemTags().view());
        text_ += "</metadata>\n";
        line("</info>");
    }

    void line(std::string_view content) {
        doIndent(text_, indent());
        text_ += content;
        text_ += '\n';
    }

    void element(std::string_view name, std::string_view content) {
        doIndent(text_, indent());
        text_ += '<';
        text_ += name;
        text_ += '>';
        text_ += content;
        text_ += "</";
        text_ += name;
        text_ += ">\n";
    }

    const Bookmark& master_;
    const XBELExportOptions options_;
    ExportSteps steps_;
    OutputLimit limit_{master_};
    std::string text_;
    std::vector<const Bookmark*> pending_;
    std::vector<std::size_t> lists_; // for each open list, the index in `pending_` of its first node
};

// Returns a lower limit on the number of tabs in the file. Each node has at least two indented lines.
std::uint64_t leastIndentsBelow(const Bookmark& master) {
    std::uint64_t indent = 0;
    std::uint64_t tabs = 0;
    const auto enter = [&](const Bookmark& node) {
        tabs += 2 * indent;
        const bool descend = node.isFolder() && !node.isSeparator() && node.getChildren();
        indent += descend ? 1 : 0;
        return descend;
    };
    walkBelow(master, enter, [&](const Bookmark&) { --indent; });
    return tabs;
}

} // namespace

Result<std::string> exportToXBEL(const Bookmark& master, const XBELExportOptions& options) {
    if (leastIndentsBelow(master) > options.mostBytes)
        return failure("The folders are nested too deep for an XBEL file: its indents alone would fill it.");
    return XBELExport(master, options).run();
}

} // namespace tabulon
