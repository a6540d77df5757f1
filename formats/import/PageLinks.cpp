#include "formats/import/PageLinks.h"

#include "base/Text.h"
#include "base/Utf8.h"
#include "html/HtmlTreeBuilder.h"
#include "url/Url.h"

#include <optional>
#include <vector>

namespace tabulon {
namespace {

using html::Node;
using html::Tag;

constexpr char kFormFeed = '\f';

// Each link may repeat its base.
constexpr std::size_t kLongestBase = std::size_t{16} << 10;

struct Link {
    const Node* node;
    /// The range of its text in the text of all links.
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// The result of one walk over a tree.
struct Findings {
    std::vector<Link> links;
    /// The text inside of any link; links that are nested share it.
    std::string text;
    const std::string* base = nullptr;
};

bool isLink(const Node& node) {
    return node.link && (node.isHtml(Tag::A) || node.isHtml(Tag::Area));
}

class LinkWalk {
public:
    Findings run(const Node& document) {
        for (const Node* node = &document; node; node = next(*node))
            enter(*node);
        return std::move(findings_);
    }

private:
    void enter(const Node& node) {
        if (node.kind == Node::Kind::Text) {
            if (!open_.empty())
                findings_.text += node.text;
        } else if (isLink(node)) {
            open_.push_back(findings_.links.size());
            findings_.links.push_back({&node, findings_.text.size()});
        } else if (!findings_.base && node.isHtml(Tag::Base) && node.link) {
            findings_.base = &node.link->href;
        }
    }

    // The content of a template is no part of the page.
    const Node* next(const Node& node) {
        if (node.first && !node.isHtml(Tag::Template))
            return node.first;
        for (const Node* left = &node; left; left = left->parent) {
            if (isLink(*left)) {
                findings_.links[open_.back()].end = findings_.text.size();
                open_.pop_back();
            }
            if (left->next)
                return left->next;
        }
        return nullptr;
    }

    Findings findings_;
    std::vector<std::size_t> open_;
};

// Returns the base of the page's addresses. A base that has no path for relative addresses, or is too long,
// is ignored. Returns `nullopt` for a base that cannot be parsed: no address is relative to it.
std::optional<url::Url> baseOf(const Findings& findings, std::string_view queryEncoding) {
    std::optional<url::Url> blank = url::parse("about:blank");
    if (!findings.base)
        return blank;
    std::optional<url::Url> base = url::parse(*findings.base, &*blank, queryEncoding);
    const bool isPlace = !base || (base->scheme != "data" && base->scheme != "javascript" &&
                                   base->text().size() <= kLongestBase);
    return isPlace ? base : blank;
}

std::string withoutReturns(std::string text) {
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isReturn = text[i] == '\r';
        text[length++] = isReturn ? '\n' : text[i];
        if (isReturn && i + 1 < text.size() && text[i + 1] == '\n')
            ++i;
    }
    text.resize(length);
    return text;
}

Result<PageLinks> linksOf(const Findings& findings, std::string_view queryEncoding, std::size_t mostBytes,
                          Progress* progress) {
    constexpr std::size_t kLinkStride = 256; // links
    PageLinks result;
    ProgressSteps steps(progress, findings.links.size(), kLinkStride);
    std::size_t done = 0;
    const std::optional<url::Url> base = baseOf(findings, queryEncoding);
    for (const Link& link : findings.links) {
        if (!steps.goOn(done++))
            return cancelledByUser();
        const html::LinkAttributes& attributes = *link.node->link;
        const auto target = url::parse(attributes.href, base ? &*base : nullptr, queryEncoding);
        (result.targets += target ? target->text() : attributes.href) += kFormFeed;
        (result.datesAdded += attributes.addDate.value_or("null")) += kFormFeed;
        (result.datesModified += attributes.lastModified.value_or("null")) += kFormFeed;
        if (link.node->tag == Tag::Area)
            result.texts += "undefined";
        else
            result.texts.append(findings.text, link.begin, link.end - link.begin);
        result.texts += kFormFeed;
        if (result.texts.size() > mostBytes)
            return failure("The links of the page are nested too deeply into each other.");
        if (result.targets.size() > mostBytes)
            return failure("The addresses of the page's links are too long.");
    }
    return result;
}

} // namespace

Result<PageLinks> readPageLinks(std::string_view page, std::string_view queryEncoding, Progress* progress) {
    const std::string source = withoutReturns(decodeUtf8Leniently(page));
    constexpr double kBuilding = 0.4;
    PartialProgress building(progress, 0, kBuilding);
    PartialProgress collecting(progress, kBuilding, 1);
    html::Tree tree;
    const html::BuildOutcome outcome = html::buildTree(source, tree, &building);
    if (outcome == html::BuildOutcome::Cancelled)
        return cancelledByUser();
    if (outcome == html::BuildOutcome::Entangled)
        return failure("The tags of the page are too entangled to be read.");
    return linksOf(LinkWalk().run(tree.document()), queryEncoding, kMostRepeatedBytes + 16 * source.size(),
                   &collecting);
}

} // namespace tabulon
