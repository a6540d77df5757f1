// Finding, sorting and the search for duplicates, on the tree alone.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "model/Duplicates.h"
#include "model/Finder.h"
#include "model/TreeSort.h"
#include "model/TreeWalk.h"
#include "text/Collation.h"

#include <fmt/format.h>
#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <map>
#include <memory>
#include <unordered_set>

namespace tabulon::bench {

namespace {

constexpr double kMostOfFinding = 0.010 / 100'000;     // seconds per node
constexpr double kMostOfLongFinding = 0.100 / 1e6;     // seconds per node, in a large document
constexpr std::size_t kLinksOfLargeDocument = 909'000; // about a million nodes

std::vector<std::string> lowerCasedURLs(const Bookmark& root) {
    std::vector<std::string> urls;
    walkBelow(root, [&urls](const Bookmark& node) {
        if (!node.isFolder() && !node.itemURL().isNull()) {
            std::string url = node.itemURL().string();
            std::ranges::transform(url, url.begin(), [](char c) {
                return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
            });
            urls.push_back(std::move(url));
        }
        return true;
    });
    return urls;
}

/// Returns the names that are sorted together: those of the folders, and those of the other nodes, of each
/// folder. Nodes whose name is null, such as separators, are left out.
std::vector<std::vector<std::string_view>> namesByGroup(const Bookmark& root) {
    std::vector<const Bookmark*> folders{&root};
    walkBelow(root, [&folders](const Bookmark& node) {
        if (node.isFolder())
            folders.push_back(&node);
        return true;
    });
    std::vector<std::vector<std::string_view>> groups;
    for (const Bookmark* folder : folders) {
        std::vector<std::string_view> inner;
        std::vector<std::string_view> links;
        for (const Bookmark* child : *folder->getChildren())
            if (!child->itemName().isNull())
                (child->isFolder() ? inner : links).push_back(child->itemName().view());
        groups.push_back(std::move(inner));
        groups.push_back(std::move(links));
    }
    return groups;
}

using IcuKey = std::vector<std::uint8_t>;

IcuKey icuKey(const icu::Collator& collator, std::string_view text) {
    const auto wide = icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
    std::uint8_t buffer[512];
    const std::int32_t size = collator.getSortKey(wide, buffer, sizeof buffer);
    require(size <= static_cast<std::int32_t>(sizeof buffer), "a name of the corpus has a long sort key");
    return {buffer, buffer + size};
}

std::vector<std::vector<IcuKey>> sortedIcuKeys(const icu::Collator& collator,
                                               const std::vector<std::vector<std::string_view>>& groups) {
    std::vector<std::vector<IcuKey>> sorted;
    for (const std::vector<std::string_view>& names : groups) {
        std::vector<IcuKey>& keys = sorted.emplace_back();
        for (const std::string_view name : names)
            keys.push_back(icuKey(collator, name));
        std::ranges::sort(keys);
    }
    return sorted;
}

void requireSorted(const Bookmark& tree, const icu::Collator& collator,
                   const std::vector<std::vector<std::string_view>>& groups) {
    const auto expected = sortedIcuKeys(collator, groups);
    const auto names = namesByGroup(tree);
    std::size_t compared = 0;
    // The folders are in another order after sorting. Groups are identified by their keys.
    std::map<std::vector<IcuKey>, int> counts;
    for (const auto& group : expected)
        ++counts[group];
    for (const auto& group : names) {
        std::vector<IcuKey> keys;
        for (const std::string_view name : group)
            keys.push_back(icuKey(collator, name));
        require(counts[keys]-- > 0, "a folder is not sorted");
        compared += keys.size();
    }
    const TreeSize size = sizeOf(tree);
    require(compared == size.nodes - size.separators, "the sorted tree has other nodes");
}

// Compares the time of finding with `most` seconds for each node, and with one pass over the texts.
Row rowOfFinding(const Bookmark& tree, std::string_view target, double most, const Effort& effort) {
    std::string texts;
    const std::size_t nodes = sizeOf(tree).nodes;
    walkBelow(tree, [&texts](const Bookmark& node) {
        for (const Text& text : {node.itemName(), node.itemURL(), node.itemTags(), node.itemNote()})
            texts += text.view();
        return true;
    });
    const double ours = secondsOfFinding(tree, effort.runs);
    const double pass = fastest(effort.runs, [&] { return std::string(texts); });
    return {fmt::format("find in {} nodes, ignoring case and accents", nodes),
            milliseconds(ours),
            fmt::format("copying the {:.0f} MB of their texts: {}", static_cast<double>(texts.size()) / 1e6,
                        milliseconds(pass)),
            fmt::format("{:.1f} × as long", ours / pass),
            std::string(target),
            verdict(effort, ours <= most * static_cast<double>(nodes))};
}

} // namespace

double secondsOfSorting(const Bookmark& tree, int runs) {
    const Collation collation("en_US");
    double best = 1e9;
    for (int run = 0; run < runs; ++run) {
        const Ref<Bookmark> copy = deepCopy(tree);
        best = std::min(best, fastest(1, [&] {
                            sortFolder(*copy, SortKey::Name, SortDirection::Ascending, collation);
                            return true;
                        }));
    }
    return best;
}

Row sortRow(const Sample& sample, const Effort& effort) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance("en_US", status));
    require(U_SUCCESS(status), "ICU has no collator");
    collator->setStrength(icu::Collator::SECONDARY);
    const auto groups = namesByGroup(*sample.tree);
    const Ref<Bookmark> sorted = deepCopy(*sample.tree);
    sortFolder(*sorted, SortKey::Name, SortDirection::Ascending, Collation("en_US"));
    requireSorted(*sorted, *collator, groups);

    const double ours = secondsOfSorting(*sample.tree, effort.runs);
    const double keys = fastest(effort.runs, [&] { return sortedIcuKeys(*collator, groups); });
    return {"sort a document by name",
            milliseconds(ours),
            fmt::format("making and sorting ICU's sort keys alone: {}", milliseconds(keys)),
            fmt::format("{:.2f} × as long", ours / keys),
            "1.5 × as long",
            verdict(effort, ours <= 1.5 * keys)};
}

double secondsOfFinding(const Bookmark& tree, int runs) {
    const Collation collation("en_US");
    FindPhases phases;
    Finder finder(phases, collation);
    const auto find = [&] { return finder.findText(tree, "no such text").count; };
    require(find() == 0, "a text was found that is not there");
    return fastest(runs, find);
}

Row findRow(const Sample& sample, const Effort& effort) {
    const Collation collation("en_US");
    std::size_t expected = 0;
    walkBelow(*sample.tree, [&](const Bookmark& node) {
        const auto hit = [&](const Text& text) {
            return !text.isNull() && collation.standardContains(text.view(), "WWW");
        };
        const bool name = hit(node.itemName());
        const bool url = hit(node.itemURL());
        expected +=
            std::size_t{name || url} + std::size_t{hit(node.itemTags())} + std::size_t{hit(node.itemNote())};
        return true;
    });
    FindPhases phases;
    Finder finder(phases, collation);
    require(finder.findText(*sample.tree, "WWW").count == expected, "another number of matches was found");
    return rowOfFinding(*sample.tree, "10 ms for 100000 nodes", kMostOfFinding, effort);
}

Row findInLargeDocumentRow(const Sample& sample, const Effort& effort) {
    const Ref<Bookmark> tree = effort.judged ? makeCorpus(kLinksOfLargeDocument) : sample.tree;
    return rowOfFinding(*tree, "100 ms for 1000000 nodes", kMostOfLongFinding, effort);
}

Row duplicatesRow(const Sample& sample, const Effort& effort) {
    const std::vector<std::string> urls = lowerCasedURLs(*sample.tree);
    const std::unordered_set<std::string> distinct(urls.begin(), urls.end());
    require(findDuplicates(*sample.tree).size() == urls.size() - distinct.size(),
            "the duplicate scan found another number of links");

    const double ours = fastest(effort.runs, [&] { return findDuplicates(*sample.tree); });
    double sorting = 1e9;
    for (int run = 0; run < effort.runs; ++run) {
        std::vector<std::string> sorted = urls;
        sorting = std::min(sorting, fastest(1, [&] {
                               std::ranges::sort(sorted);
                               return true;
                           }));
        require(std::ranges::is_sorted(sorted), "the URLs were not sorted");
    }
    return {fmt::format("find the duplicates among {} links", urls.size()),
            milliseconds(ours),
            fmt::format("`std::sort` of the lower-cased URLs: {}", milliseconds(sorting)),
            fmt::format("{:.1f} × faster", sorting / ours),
            "2 × faster",
            verdict(effort, sorting >= 2 * ours)};
}

} // namespace tabulon::bench
