// Writing pasteboard items in the types of other programs: texts, lists of links, and trees.
#include "base/LittleEndian.h"
#include "formats/export/ChromiumEntries.h"
#include "formats/export/XBEL.h"
#include "model/TreeWalk.h"
#include "text/PercentCoding.h"
#include "text/XmlEntities.h"
#include "window/MimeItems.h"
#include "window/PrivateItems.h"
#include "window/ReceivedTree.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

namespace tabulon {
namespace {

constexpr std::size_t kLargestChromiumForm = std::size_t{1} << 24;

bool isPlainInUri(char c) {
    return c > 0x20 && c < 0x7F && c != '"' && c != '<' && c != '>';
}

std::string oneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return line;
}

// Writes the lists of links. All of them are left out if one is too long.
class LinkListWriter {
public:
    // Adds a link, or all links below a folder in their order.
    void add(const Bookmark& node) {
        if (!node.isFolder())
            return addLink(node);
        walkBelow(node, [this](const Bookmark& inner) {
            if (!inner.isFolder())
                addLink(inner);
            return inner.isFolder();
        });
    }

    void setIn(MimeContent& content) {
        setIfAny(content, "text/uri-list", uris_);
        setIfAny(content, "text/x-moz-url", mozilla_);
        setIfAny(content, "text/html", html_);
    }

private:
    void addLink(const Bookmark& link) {
        if (link.isSeparator() || link.itemURL().isEmpty() || size_ > kLargestMimeForm)
            return;
        const std::string url = oneLine(link.itemURL().view());
        const std::string name = oneLine(link.itemName().view());
        uris_ += percent::encode(url, isPlainInUri) + "\r\n";
        appendUtf16(mozilla_, fmt::format("{}{}\n{}", mozilla_.empty() ? "" : "\n", url, name));
        html_ += fmt::format("{}<a href=\"{}\">{}</a>", html_.empty() ? "" : "<br>\n", escapeXmlEntities(url),
                             escapeXmlEntities(name));
        size_ = std::max({uris_.size(), mozilla_.size(), html_.size()});
    }

    void setIfAny(MimeContent& content, std::string_view type, std::string& bytes) const {
        if (!bytes.empty() && size_ <= kLargestMimeForm)
            content.set(type, std::move(bytes));
    }

    std::string uris_;
    std::string mozilla_;
    std::string html_;
    std::size_t size_ = 0; // of the longest list
};

void setTrees(MimeContent& content, const std::vector<Ref<Bookmark>>& nodes) {
    const Ref<Bookmark> root = Bookmark::initEmpty();
    root->makeParent();
    for (const Ref<Bookmark>& node : nodes)
        root->addChild(deepCopy(*node));
    XBELExportOptions options;
    options.mostBytes = kLargestMimeForm;
    if (Result<std::string> file = exportToXBEL(*root, options); file && root->hasChildren())
        content.set(kXbelType, *std::move(file));
    if (std::string entries = exportToChromiumEntries(*root, kLargestChromiumForm); !entries.empty())
        content.set(kChromiumType, std::move(entries));
}

} // namespace

MimeContent mimeContent(const std::vector<PasteboardItem>& items, const NodeRecords& records) {
    std::string text;
    LinkListWriter lists;
    std::vector<Ref<Bookmark>> nodes;
    for (const PasteboardItem& item : items) {
        if (const std::string* string = item.get(kStringType))
            text += (text.empty() ? "" : "\n") + *string;
        const std::string* record = item.get(kItemType);
        Ref<Bookmark> node = record ? records.find(*record) : nullptr;
        if (!node)
            continue;
        lists.add(*node);
        nodes.push_back(std::move(node));
    }
    MimeContent content;
    content.set(kItemsMimeType, privateForm(items, records.token()));
    if (!text.empty())
        content.set("text/plain", std::move(text));
    lists.setIn(content);
    setTrees(content, nodes);
    return content;
}

} // namespace tabulon
