#include "window/LinkLists.h"

#include "base/Lines.h"
#include "formats/import/PageLinks.h"
#include "formats/import/TextDecoding.h"
#include "text/ByteOrderMark.h"
#include "text/FileUri.h"
#include "text/UriScheme.h"

#include <algorithm>

namespace tabulon {
namespace {

constexpr std::size_t kMostRepeated = 16;
constexpr std::string_view kWhiteSpace = " \t\n\r\f\v";

// Line ends are a line feed, or a carriage return and a line feed.
std::vector<std::string_view> linesOfList(std::string_view text) {
    std::vector<std::string_view> lines = linesOf(text);
    for (std::string_view& line : lines)
        if (line.ends_with('\r'))
            line.remove_suffix(1);
    return lines;
}

// White space is allowed after the first character of the address, because some programs do not escape it.
bool isAddress(std::string_view line) {
    const std::size_t scheme = schemeLength(line);
    return scheme > 0 && scheme + 1 < line.size() &&
           kWhiteSpace.find(line[scheme + 1]) == std::string_view::npos;
}

std::string inOneLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t begin = std::min(text.find_first_not_of(kWhiteSpace), text.size());
        text.remove_prefix(begin);
        const std::string_view word = text.substr(0, text.find_first_of(kWhiteSpace));
        line += line.empty() || word.empty() ? "" : " ";
        line += word;
        text.remove_prefix(word.size());
    }
    return line;
}

// Removes the first value of a list in which a form feed follows each value, and returns it.
std::string_view takeValue(std::string_view& list) {
    const std::string_view value = list.substr(0, list.find('\f'));
    list.remove_prefix(std::min(value.size() + 1, list.size()));
    return value;
}

} // namespace

bool hasAddress(std::string_view text) {
    return text.find("://") != std::string_view::npos || text.find("mailto:") != std::string_view::npos ||
           isAddress(text);
}

std::vector<NamedLink> linksOfPairs(std::string_view text) {
    std::vector<NamedLink> links;
    bool titleIsDue = false;
    for (const std::string_view line : linesOfList(text)) {
        if (titleIsDue) {
            links.back().title = line;
            titleIsDue = false;
        } else if (isAddress(line)) {
            links.push_back({std::string(line), {}});
            titleIsDue = true;
        } else if (!links.empty() && !line.empty()) {
            (links.back().title += links.back().title.empty() ? "" : " ") += line;
        }
    }
    return links;
}

std::string utf8OfMozilla(std::string_view bytes) {
    const std::string marked = std::string(bytesOf(ByteOrderMark::Utf16LittleEndian)) + std::string(bytes);
    std::string text(withoutUtf8Mark(decodeText(marked, TextKind::Plain).text));
    text.erase(std::min(text.find('\0'), text.size()));
    return text;
}

std::vector<NamedLink> linksOfMozillaList(std::string_view bytes) {
    return linksOfPairs(utf8OfMozilla(bytes));
}

std::vector<NamedLink> linksOfUriList(std::string_view list) {
    std::vector<NamedLink> links;
    for (const std::string_view line : linesOfList(list))
        if (!line.starts_with('#') && isAddress(line))
            links.push_back({std::string(line), {}});
    return links;
}

std::vector<std::string> fileUrisIn(std::string_view uriList) {
    std::vector<std::string> uris;
    for (NamedLink& link : linksOfUriList(uriList)) {
        if (!pathOfFileUri(link.url))
            return {};
        uris.push_back(std::move(link.url));
    }
    return uris;
}

std::vector<NamedLink> linksOfHtml(std::string_view html) {
    std::vector<NamedLink> links;
    if (html.size() > kLargestSelection)
        return links;
    const Result<PageLinks> page = readPageLinks(html);
    if (!page)
        return links;
    // Every link may repeat a long base.
    if (page->targets.size() + page->texts.size() > kMostRepeated * html.size())
        return links;
    std::string_view targets = page->targets;
    std::string_view texts = page->texts;
    while (!targets.empty()) {
        const std::string_view target = takeValue(targets);
        const std::string_view text = takeValue(texts);
        // In a page without an address, links to the page itself are resolved against this one.
        if (isAddress(target) && !target.starts_with("about:blank"))
            links.push_back({std::string(target), inOneLine(text)});
    }
    return links;
}

} // namespace tabulon
