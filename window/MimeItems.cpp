#include "window/MimeItems.h"

#include "formats/XmlEntities.h"
#include "formats/import/LinkFileReader.h"
#include "formats/import/TextDecoding.h"
#include "model/Lines.h"
#include "window/FileUri.h"

#include <fmt/format.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace tabulon {
namespace {

// The private form: the token of the process, then counts and lengths of four bytes, low byte first.

void appendNumber(std::string& bytes, std::size_t number) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
}

void appendBytes(std::string& bytes, std::string_view part) {
    appendNumber(bytes, part.size());
    bytes += part;
}

std::string privateForm(const std::vector<PasteboardItem>& items, const std::string& token) {
    std::string bytes = token;
    appendNumber(bytes, items.size());
    for (const PasteboardItem& item : items) {
        appendNumber(bytes, item.values().size());
        for (const auto& [type, value] : item.values()) {
            appendBytes(bytes, type);
            appendBytes(bytes, value);
        }
    }
    return bytes;
}

class PrivateReader {
public:
    explicit PrivateReader(std::string_view rest) : rest_(rest) {}

    /// None where the bytes are not whole.
    std::vector<PasteboardItem> items() {
        std::vector<PasteboardItem> items;
        for (std::size_t count = number(); whole_ && count > 0; --count) {
            PasteboardItem item;
            for (std::size_t values = number(); whole_ && values > 0; --values) {
                const std::string_view type = bytes();
                item.set(type, std::string(bytes()));
            }
            items.push_back(std::move(item));
        }
        return whole_ ? items : std::vector<PasteboardItem>();
    }

private:
    std::string_view take(std::size_t size) {
        whole_ = whole_ && size <= rest_.size();
        const std::string_view part = whole_ ? rest_.substr(0, size) : std::string_view();
        rest_.remove_prefix(part.size());
        return part;
    }
    std::size_t number() {
        std::size_t number = 0;
        int shift = 0;
        for (const char byte : take(4)) {
            number |= std::size_t{static_cast<unsigned char>(byte)} << shift;
            shift += 8;
        }
        return number;
    }
    std::string_view bytes() { return take(number()); }

    std::string_view rest_;
    bool whole_ = true;
};

// Lists of links

struct Link {
    std::string url;
    std::string title;
};

// Line ends are a line feed, or a carriage return and a line feed.
std::vector<std::string_view> linesOfList(std::string_view text) {
    std::vector<std::string_view> lines = linesOf(text);
    for (std::string_view& line : lines)
        if (line.ends_with('\r'))
            line.remove_suffix(1);
    return lines;
}

// UTF-16 in the order of the machine, mostly without a byte-order mark; some programs end it with a zero.
std::string utf8OfMozilla(std::string_view bytes) {
    std::string text = decodeText("\xFF\xFE" + std::string(bytes), TextKind::Plain).text;
    if (text.starts_with("\uFEFF"))
        text.erase(0, std::string_view("\uFEFF").size());
    text.erase(std::min(text.find('\0'), text.size()));
    return text;
}

// Lines of URL and title in turn.
std::vector<Link> linksOfPairs(std::string_view text) {
    const std::vector<std::string_view> lines = linesOfList(text);
    std::vector<Link> links;
    for (std::size_t i = 0; i < lines.size(); i += 2)
        if (!lines[i].empty())
            links.push_back({std::string(lines[i]), std::string(i + 1 < lines.size() ? lines[i + 1] : "")});
    return links;
}

std::vector<Link> linksOfUriList(std::string_view list) {
    std::vector<Link> links;
    for (const std::string_view line : linesOfList(list))
        if (!line.empty() && !line.starts_with('#'))
            links.push_back({std::string(line), {}});
    return links;
}

// Files

// Nothing for a file that holds no link or cannot be read.
std::optional<LinkFileContent> linkInFile(const std::string& path, FileStore& files) {
    const auto identity = files.kindOf(path) == PathKind::File ? files.identityOf(path) : std::nullopt;
    if (!identity || identity->size > kLargestLinkFile)
        return std::nullopt;
    const auto bytes = files.readFile(path);
    return bytes ? readLinkFile(*bytes) : std::nullopt;
}

PasteboardItem fileItem(const std::string& uri, FileStore& files) {
    PasteboardItem item;
    item.set(kFileURLType, uri);
    const std::filesystem::path path = pathOfFileUri(uri).value_or("");
    const bool isList = path.extension() == ".webloc" || path.extension() == ".mailloc";
    if (!isList && path.extension() != ".url" && path.extension() != ".desktop")
        return item;
    const auto link = linkInFile(path.string(), files);
    if (!link)
        return item;
    if (!isList) { // the desktop's own forms stand for the link that they hold
        item = {};
        item.set(kURLNameType,
                 (link->name.isEmpty() ? Text::fromBytes(path.stem().string()) : link->name).string());
    }
    item.set(kURLType, link->url.string());
    return item;
}

void setTextAndHtml(PasteboardItem& item, const MimeContent& content) {
    if (const std::string* text = content.get("text/plain"))
        item.set(kStringType, Text::fromBytes(*text).string());
    if (const std::string* html = content.get("text/html"))
        item.set(kHTMLType, decodeText(*html, TextKind::Html).text);
}

std::vector<Link> linksIn(const MimeContent& content) {
    std::vector<Link> links;
    if (const std::string* mozilla = content.get("text/x-moz-url"))
        links = linksOfPairs(utf8OfMozilla(*mozilla));
    if (!links.empty())
        return links;
    if (const std::string* list = content.get("text/uri-list"))
        links = linksOfUriList(*list);
    const std::string* netscape = content.get("_NETSCAPE_URL");
    const std::vector<Link> named = linksOfPairs(netscape ? Text::fromBytes(*netscape).view() : "");
    if (named.size() == 1 && links.size() == 1)
        links[0].title = named[0].title;
    return links.empty() ? named : links;
}

// Writing

// What may not stand in a URI stands as percent escapes.
std::string uriOf(std::string_view url) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string uri;
    for (const char c : url) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 0x20 && byte < 0x7F && c != '"' && c != '<' && c != '>') {
            uri += c;
        } else {
            uri += '%';
            uri += kDigits[byte >> 4];
            uri += kDigits[byte & 15];
        }
    }
    return uri;
}

std::string oneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return line;
}

void appendUtf16(std::string& bytes, std::string_view utf8) {
    const auto units = icu::UnicodeString::fromUTF8({utf8.data(), static_cast<int32_t>(utf8.size())});
    for (int32_t i = 0; i < units.length(); ++i) {
        bytes += static_cast<char>(units[i] & 0xFF);
        bytes += static_cast<char>(units[i] >> 8);
    }
}

} // namespace

std::vector<PasteboardItem> pasteboardItems(const MimeContent& content, const NodeRecords& records,
                                            FileStore& files) {
    const std::string* own = content.get(kItemsMimeType);
    if (own && own->starts_with(records.token()))
        return PrivateReader(std::string_view(*own).substr(records.token().size())).items();
    const std::vector<Link> links = linksIn(content);
    std::vector<PasteboardItem> items;
    for (const Link& link : links) {
        PasteboardItem item;
        if (pathOfFileUri(link.url)) {
            item = fileItem(link.url, files);
        } else {
            item.set(kURLType, link.url);
            if (!link.title.empty())
                item.set(kURLNameType, link.title);
            if (links.size() == 1)
                setTextAndHtml(item, content);
        }
        items.push_back(std::move(item));
    }
    if (!items.empty())
        return items;
    PasteboardItem item;
    setTextAndHtml(item, content);
    return item.values().empty() ? items : std::vector{item};
}

MimeContent mimeContent(const std::vector<PasteboardItem>& items, const NodeRecords& records) {
    std::string text;
    std::string uris;
    std::string mozilla;
    std::string html;
    for (const PasteboardItem& item : items) {
        const std::string* record = item.get(kItemType);
        const Ref<Bookmark> node = record ? records.find(*record) : nullptr;
        if (const std::string* string = item.get(kStringType))
            text += (text.empty() ? "" : "\n") + *string;
        if (!node || node->itemURL().isEmpty())
            continue;
        const std::string url = oneLine(node->itemURL().view());
        const std::string name = oneLine(node->itemName().view());
        uris += uriOf(url) + "\r\n";
        appendUtf16(mozilla, fmt::format("{}{}\n{}", mozilla.empty() ? "" : "\n", url, name));
        html += fmt::format("{}<a href=\"{}\">{}</a>", html.empty() ? "" : "<br>\n", escapeXmlEntities(url),
                            escapeXmlEntities(name));
    }
    MimeContent content;
    content.set(kItemsMimeType, privateForm(items, records.token()));
    const auto setIfAny = [&content](std::string_view type, std::string& bytes) {
        if (!bytes.empty())
            content.set(type, std::move(bytes));
    };
    setIfAny("text/plain", text);
    setIfAny("text/uri-list", uris);
    setIfAny("text/x-moz-url", mozilla);
    setIfAny("text/html", html);
    return content;
}

} // namespace tabulon
