#include "formats/export/NetscapeHTML.h"

#include "formats/export/ExportSteps.h"
#include "formats/export/ExportText.h"
#include "formats/export/SiblingOrder.h"
#include "model/OutputLimit.h"
#include "model/TreeWalk.h"
#include "text/XmlEntities.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tabulon {
namespace {

constexpr std::string_view kHeader =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
    "<!-- Created by Tabulon - https://tabulon.example/ -->\n"
    "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
    "<TITLE>Bookmarks</TITLE>\n"
    "<H1>Bookmarks</H1>\n";

// Appends a date in seconds since 1970, truncated toward zero. All digits are written: an importer's
// arithmetic can produce dates that no integer type holds, and these are read back unchanged. Infinities, NaN
// and null are written as 0.
void appendDate(std::string& text, Date date) {
    constexpr double kLimit = 9223372036854775808.0; // 2^63
    constexpr std::size_t kMostDigits = std::numeric_limits<double>::max_exponent10 + 2;
    char digits[kMostDigits];
    const double seconds = date.isNull() ? 0 : date.unixSeconds();
    const auto written = seconds >= -kLimit && seconds < kLimit
                             ? std::to_chars(digits, std::end(digits), static_cast<std::int64_t>(seconds))
                             : std::to_chars(digits, std::end(digits), std::isfinite(seconds) ? seconds : 0,
                                             std::chars_format::fixed, 0);
    text.append(digits, written.ptr);
}

// Returns whether a link is written. Its note is written in any case.
bool isWrittenAsLink(const Bookmark& link) {
    return !link.itemURL().isNull() && !link.itemName().isNull();
}

tl::unexpected<Error> tooLarge() {
    return failure("The bookmarks are too many or too long for one HTML file.");
}

// One export. The open lists are a stack: `levels_` contains, for each, the index in `pending_` at which its
// nodes begin. The size of `levels_` is the indent of the nodes in the innermost list. `pending_` contains
// the nodes that are not written yet, the next one last.
class HTMLExport {
public:
    HTMLExport(const Bookmark& master, const HTMLExportOptions& options)
        : master_(master), sortByName_(options.sortByName), mostBytes_(options.mostBytes),
          steps_(options.progress, master,
                 options.sortByName ? ExportOrder::Sorted : ExportOrder::AsInTheTree) {}

    Result<std::string> run() {
        text_ = kHeader;
        beginList(master_);
        while (!levels_.empty()) {
            if (text_.size() > mostBytes_)
                return tooLarge();
            if (pending_.size() == levels_.back()) {
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
        if (text_.size() > mostBytes_)
            return tooLarge();
        return std::move(text_);
    }

private:
    int level() const { return static_cast<int>(levels_.size()); }

    void beginList(const Bookmark& folder) {
        if (!folder.hasChildren())
            return;
        const std::size_t first = pending_.size();
        for (const Bookmark* child : *folder.getChildren())
            pending_.push_back(child);
        if (sortByName_)
            sortNodes(std::span(pending_).subspan(first), *sortByName_, steps_);
        std::reverse(pending_.begin() + static_cast<std::ptrdiff_t>(first), pending_.end());
        doIndent(text_, level());
        text_ += "<DL><p>\n";
        levels_.push_back(first);
    }

    void endList() {
        levels_.pop_back();
        doIndent(text_, level());
        text_ += "</DL><p>\n";
    }

    void writeNode(const Bookmark& node) {
        if (node.isSeparator()) {
            doIndent(text_, level());
            text_ += "<HR>\n";
            if (node.isFolder())
                beginList(node);
        } else if (node.isFolder()) {
            writeFolder(node);
        } else {
            writeLink(node);
        }
    }

    void writeFolder(const Bookmark& folder) {
        if (!folder.itemName().isEmpty()) {
            doIndent(text_, level());
            text_ += "<DT><H3";
            writeDatesAndName(folder);
            text_ += "</H3>\n";
        }
        if (folder.hasChildren()) {
            beginList(folder);
            return;
        }
        doIndent(text_, level() + 1);
        text_ += "<DL><p></DL></p>\n";
    }

    void writeLink(const Bookmark& link) {
        if (isWrittenAsLink(link)) {
            doIndent(text_, level());
            text_ += "<DT><A HREF=\"";
            text_ += link.itemURL().view();
            text_ += '"';
            writeDatesAndName(link);
            text_ += "</A>\n";
        }
        if (!link.itemNote().isEmpty()) {
            doIndent(text_, level());
            text_ += "<DD>";
            appendXmlEscaped(text_, tidyPart(link.itemNote().view()));
            text_ += '\n';
        }
    }

    void writeDatesAndName(const Bookmark& node) {
        text_ += " ADD_DATE=\"";
        appendDate(text_, node.itemDateAdded());
        if (!node.itemDateModified().isNull()) {
            text_ += "\" LAST_MODIFIED=\"";
            appendDate(text_, node.itemDateModified());
        }
        text_ += "\">";
        appendXmlEscaped(text_, node.itemName().view());
    }

    const Bookmark& master_;
    const Collation* sortByName_;
    std::size_t mostBytes_;
    ExportSteps steps_;
    OutputLimit limit_{master_};
    std::string text_;
    std::vector<const Bookmark*> pending_;
    std::vector<std::size_t> levels_;
};

// Returns the number of tabs on the lines of a node at `level`, including the lines of its list.
std::uint64_t indentsOf(const Bookmark& node, std::uint64_t level) {
    if (node.isSeparator())
        return node.isFolder() && node.hasChildren() ? 3 * level : level;
    if (node.isFolder())
        return (node.itemName().isEmpty() ? 0 : level) + (node.hasChildren() ? 2 * level : level + 1);
    return (isWrittenAsLink(node) ? level : 0) + (node.itemNote().isEmpty() ? 0 : level);
}

std::uint64_t indentsBelow(const Bookmark& master) {
    std::uint64_t level = 1;
    std::uint64_t indents = 0;
    const auto enter = [&](const Bookmark& node) {
        indents += indentsOf(node, level);
        const bool descend = node.isFolder() && node.getChildren();
        level += descend ? 1 : 0;
        return descend;
    };
    walkBelow(master, enter, [&](const Bookmark&) { --level; });
    return indents;
}

} // namespace

Result<std::string> exportToHTML(const Bookmark& master, const HTMLExportOptions& options) {
    if (indentsBelow(master) > options.mostBytes)
        return failure("The folders are nested too deep for an HTML file: its indents alone would fill it.");
    return HTMLExport(master, options).run();
}

} // namespace tabulon
