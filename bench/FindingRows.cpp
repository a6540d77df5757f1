// Finding and putting in order, on the tree alone.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "model/Duplicates.h"
#include "model/TreeWalk.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>

namespace tabulon::bench {

namespace {

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

} // namespace

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
