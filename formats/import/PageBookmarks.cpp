#include "formats/import/PageBookmarks.h"

#include "base/Ascii.h"
#include "formats/import/TextDecoding.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace tabulon {
namespace {

// Returns the whole number at the beginning of a text, or 0. A number that does not fit into 64 bits is
// limited to the nearest one that does.
std::int64_t integerValue(std::string_view text) {
    while (!text.empty() && (ascii::isSpace(text.front()) || text.front() == '\v'))
        text.remove_prefix(1);
    const bool isNegative = text.starts_with('-');
    if (text.starts_with('+') && text.size() > 1 && ascii::isDigit(text[1]))
        text.remove_prefix(1);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc::result_out_of_range)
        return isNegative ? INT64_MIN : INT64_MAX;
    return number;
}

std::vector<Date> datesOf(std::string_view joined, Date now) {
    std::vector<Date> dates;
    for (const Text& value : separatedAtFormFeeds(joined)) {
        const bool isMissing = value.isEmpty() || value.view() == "null";
        dates.push_back(isMissing ? now
                                  : Date::fromUnixSeconds(static_cast<double>(integerValue(value.view()))));
    }
    return dates;
}

} // namespace

Ref<Bookmark> newDocumentFromArraysLinks(const std::vector<Text>& names, const std::vector<Text>& urls,
                                         const BaseServices& services) {
    if (names.empty() || urls.empty())
        return nullptr;
    const Date now = Date::now(services.clock);
    const Text untitled = services.texts.text("Untitled");
    Ref<Bookmark> root = Bookmark::init(now);
    root->makeParent();
    root->setItemName("Master");
    for (std::size_t i = 0; i < std::min(names.size(), urls.size()); ++i) {
        if (names[i].isEmpty() && urls[i].isEmpty())
            continue;
        Ref<Bookmark> link = Bookmark::init(now);
        link->setItemName(names[i].isEmpty() ? untitled : names[i]);
        link->setItemURL(urls[i]);
        root->addChild(std::move(link));
    }
    return root;
}

std::vector<Text> adaptURLsDomain(const std::vector<Text>& urls, const Text& domain) {
    std::vector<Text> adapted = urls;
    if (domain.isNull())
        return adapted;
    for (Text& url : adapted)
        if (url.view().starts_with('/'))
            url = domain.string() + url.string();
    return adapted;
}

std::vector<Text> adaptNames(const std::vector<Text>& names) {
    std::vector<Text> adapted = names;
    for (Text& name : adapted) {
        const std::string_view text = name.view();
        const std::size_t begin = std::min(text.find_first_not_of("\t\n\f\r "), text.size());
        if (begin > 0)
            name = Text(text.substr(begin));
    }
    return adapted;
}

std::vector<Text> separatedAtFormFeeds(std::string_view joined) {
    std::vector<Text> values;
    for (std::size_t begin = 0; begin <= joined.size();) {
        const std::size_t end = std::min(joined.find('\f', begin), joined.size());
        values.emplace_back(joined.substr(begin, end - begin));
        begin = end + 1;
    }
    return values;
}

bool isNetscapeFile(std::string_view page) {
    return page.starts_with("<!DOCTYPE NETSCAPE-Bookmark-file-1>");
}

PageBookmarks pageBookmarks(const PageLinks& links, bool netscapeFile, const Text& domain,
                            const BaseServices& services) {
    const Date now = Date::now(services.clock);
    PageBookmarks page{.urls = adaptURLsDomain(separatedAtFormFeeds(links.targets), domain),
                       .names = adaptNames(separatedAtFormFeeds(links.texts)),
                       .datesAdded = {},
                       .datesModified = {}};
    if (netscapeFile) {
        page.datesAdded = datesOf(links.datesAdded, now);
        page.datesModified = datesOf(links.datesModified, now);
    }
    return page;
}

Ref<Bookmark> treeOfPage(const PageBookmarks& page, const BaseServices& services) {
    Ref<Bookmark> root = newDocumentFromArraysLinks(page.names, page.urls, services);
    if (!root || !root->getChildren())
        return root;
    std::size_t index = 0;
    for (Bookmark* child : *root->getChildren()) {
        if (index < page.datesAdded.size())
            child->setItemDateAdded(page.datesAdded[index]);
        if (index < page.datesModified.size())
            child->setItemDateModified(page.datesModified[index]);
        ++index;
    }
    return root;
}

Result<Ref<Bookmark>> readPageFile(std::string_view bytes, const ReadOptions& options) {
    const DecodedText page = decodeText(bytes, TextKind::Html);
    const Result<PageLinks> links = readPageLinks(page.text, page.encoding, options.progress);
    if (!links)
        return tl::unexpected(links.error());
    return treeOfPage(pageBookmarks(*links, isNetscapeFile(page.text), Text(), options.services),
                      options.services);
}

} // namespace tabulon
