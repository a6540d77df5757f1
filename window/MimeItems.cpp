#include "window/MimeItems.h"

#include "base/Ascii.h"
#include "base/Lines.h"
#include "formats/import/LinkFileReader.h"
#include "formats/import/TextDecoding.h"
#include "text/FileUri.h"
#include "window/LinkLists.h"
#include "window/PrivateItems.h"
#include "window/ReceivedTree.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>

namespace tabulon {
namespace {

// Files

// Returns `nullopt` for a file that contains no link, is too large or cannot be read.
std::optional<LinkFileContent> linkInFile(const std::string& path, FileStore& files) {
    const auto identity = files.kindOf(path) == PathKind::File ? files.identityOf(path) : std::nullopt;
    if (!identity || identity->size > kLargestLinkFile)
        return std::nullopt;
    const auto bytes = files.readFile(path);
    return bytes ? readLinkFile(*bytes) : std::nullopt;
}

bool isLinkFileOfDesktop(const std::string& extension) {
    return ascii::equalsIgnoringCase(extension, ".url") || ascii::equalsIgnoringCase(extension, ".desktop");
}

PasteboardItem fileItem(const std::string& uri, FileStore& files) {
    PasteboardItem item;
    item.set(kFileURLType, uri);
    const std::filesystem::path path = pathOfFileUri(uri).value_or("");
    const bool isList = path.extension() == ".webloc" || path.extension() == ".mailloc";
    if (!isList && !isLinkFileOfDesktop(path.extension().string()))
        return item;
    const auto link = linkInFile(path.string(), files);
    if (!link)
        return item;
    if (!isList) { // these files are replaced by the link that they contain
        item = {};
        item.set(kURLNameType,
                 (link->name.isEmpty() ? Text::fromBytes(path.stem().string()) : link->name).string());
    }
    item.set(kURLType, link->url.string());
    return item;
}

// Texts

// Removes the carriage return of each line end, because texts are split at line feeds.
std::string withLineFeeds(std::string text) {
    std::size_t size = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n')
            text[size++] = text[i];
    text.resize(size);
    return text;
}

void setTextAndHtml(PasteboardItem& item, const MimeContent& content) {
    if (const std::string* text = content.get("text/plain"))
        item.set(kStringType, withLineFeeds(Text::fromBytes(*text).string()));
    if (const std::string* html = content.get("text/html"))
        item.set(kHTMLType, decodeText(*html, TextKind::Html).text);
}

// Links

std::vector<NamedLink> linksIn(const MimeContent& content) {
    std::vector<NamedLink> links;
    if (const std::string* mozilla = content.get("text/x-moz-url"))
        links = linksOfMozillaList(*mozilla);
    if (!links.empty())
        return links;
    if (const std::string* list = content.get("text/uri-list"))
        links = linksOfUriList(*list);
    const std::string* netscape = content.get("_NETSCAPE_URL");
    const std::vector<NamedLink> named = linksOfPairs(netscape ? Text::fromBytes(*netscape).view() : "");
    if (named.size() == 1 && links.size() == 1)
        links[0].title = named[0].title;
    return links.empty() ? named : links;
}

PasteboardItem linkItem(const NamedLink& link) {
    PasteboardItem item;
    item.set(kURLType, link.url);
    if (!link.title.empty())
        item.set(kURLNameType, link.title);
    return item;
}

// The clipboard tool of Wayland offers every text that it receives as plain text, too.
bool textIsTheList(const MimeContent& content) {
    const std::string* text = content.get("text/plain");
    const std::string* mozilla = content.get("text/x-moz-url");
    return text && mozilla && *text == *mozilla;
}

std::vector<PasteboardItem> linkItems(const MimeContent& content, FileStore& files) {
    const std::vector<NamedLink> links = linksIn(content);
    std::vector<PasteboardItem> items;
    for (const NamedLink& link : links) {
        if (pathOfFileUri(link.url)) {
            items.push_back(fileItem(link.url, files));
            continue;
        }
        items.push_back(linkItem(link));
        if (links.size() == 1 && !textIsTheList(content))
            setTextAndHtml(items.back(), content);
    }
    return items;
}

// Returns whether the text consists of the addresses of the links, one on each line.
bool isListOf(std::string_view text, const std::vector<NamedLink>& links) {
    std::size_t next = 0;
    for (const std::string_view line : linesOf(text)) {
        if (line.empty())
            continue;
        if (next == links.size() || line != links[next].url)
            return false;
        ++next;
    }
    return next == links.size();
}

// Returns the text and the HTML as one item, or the links of the HTML: a selection in a page has its
// addresses in the HTML alone.
std::vector<PasteboardItem> textItems(const MimeContent& content) {
    PasteboardItem item;
    setTextAndHtml(item, content);
    if (item.values().empty())
        return {};
    const std::string* text = item.get(kStringType);
    const std::string* html = item.get(kHTMLType);
    if (!text || !html)
        return {item};
    const std::vector<NamedLink> links = linksOfHtml(*html);
    if (links.empty() || (hasAddress(*text) && !isListOf(*text, links)))
        return {item};
    std::vector<PasteboardItem> items;
    std::ranges::transform(links, std::back_inserter(items), linkItem);
    return items;
}

std::vector<PasteboardItem> itemsOfTree(const Bookmark& root, NodeRecords& records) {
    std::vector<PasteboardItem> items;
    items.reserve(root.getChildren()->size());
    for (Bookmark* node : *root.getChildren()) {
        PasteboardItem item;
        item.set(kItemType, records.add(NodeRecords::List::Received, Ref<Bookmark>(node)));
        items.push_back(std::move(item));
    }
    return items;
}

} // namespace

std::vector<PasteboardItem> pasteboardItems(const MimeContent& content, const MimeReading& reading) {
    reading.records.clear(NodeRecords::List::Received);
    const std::string& token = reading.records.token();
    const std::string* own = content.get(kItemsMimeType);
    if (own && own->starts_with(token))
        return itemsOfPrivateForm(std::string_view(*own).substr(token.size()));
    if (const Ref<Bookmark> tree = receivedTree(content, reading.services))
        return itemsOfTree(*tree, reading.records);
    std::vector<PasteboardItem> items = linkItems(content, reading.files);
    return items.empty() ? textItems(content) : items;
}

} // namespace tabulon
