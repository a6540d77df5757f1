// The growth of the time per node with the size of the tree. For a linear operation the factor stays near 1
// until the data exceed the caches.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "formats/export/PlainText.h"
#include "formats/export/XBEL.h"
#include "model/ArchiveWriter.h"
#include "model/Duplicates.h"
#include "text/Collation.h"

#include <fmt/format.h>

#include <algorithm>

namespace tabulon::bench {

namespace {

constexpr double kMostGrowth = 1.5;

/// Sorting as users do: by name, in the order of the language.
std::string sortedText(const Bookmark& tree, const Collation& collation) {
    return exportToText(tree, {.name = true,
                               .url = true,
                               .tags = true,
                               .note = true,
                               .skipFolders = true,
                               .skipSeparators = true,
                               .sort = &collation})
        .value();
}

/// Seconds per node of the operations on one tree.
std::vector<double> perNode(std::size_t links, int runs) {
    const Sample sample(links);
    require(sizeOf(*opened(sample.archive)).nodes == sample.size.nodes, "an opened document has other nodes");
    require(sizeOf(*scanned(sample.html)).nodes == sample.size.nodes,
            "a scanned bookmark file has other nodes");
    const Collation collation("en_US");
    require(std::ranges::count(sortedText(*sample.tree, collation), '\n') ==
                static_cast<std::ptrdiff_t>(sample.size.links),
            "an exported text has other links");
    std::vector<double> seconds = {
        fastest(runs, [&] { return opened(sample.archive); }),
        fastest(runs, [&] { return writeDocumentArchive(*sample.tree); }),
        fastest(runs, [&] { return scanned(sample.html); }),
        fastest(runs, [&] { return exported(*sample.tree); }),
        fastest(runs, [&] { return exportToXBEL(*sample.tree, {}).value(); }),
        fastest(runs, [&] { return sortedText(*sample.tree, collation); }),
        fastest(runs, [&] { return findDuplicates(*sample.tree); }),
        secondsOfSorting(*sample.tree, runs),
        secondsOfFinding(*sample.tree, runs),
    };
    for (double& value : seconds)
        value /= static_cast<double>(sample.size.nodes);
    return seconds;
}

std::string nanoseconds(double seconds, std::size_t links) {
    return fmt::format("{:.0f} ns at {} links", seconds * 1e9, links);
}

} // namespace

std::vector<Row> growthRows(const std::vector<std::size_t>& sizes, const Effort& effort) {
    std::vector<std::vector<double>> seconds;
    for (const std::size_t links : sizes)
        seconds.push_back(perNode(links, effort.runs));

    std::vector<Row> rows;
    const char* const works[] = {
        "open, per node",           "save, per node",         "tag-scan, per node",
        "HTML export, per node",    "XBEL export, per node",  "text export, sorted by name, per node",
        "duplicate scan, per node", "sort by name, per node", "find a text that is not there, per node"};
    for (std::size_t work = 0; work < std::size(works); ++work) {
        Row row{works[work], "", "", "", fmt::format("at most {} ×", kMostGrowth)};
        for (std::size_t i = 0; i < sizes.size(); ++i)
            (i + 1 == sizes.size() ? row.ours : row.reference) +=
                nanoseconds(seconds[i][work], sizes[i]) + (i + 2 < sizes.size() ? ", " : "");
        const double growth = seconds.back()[work] / seconds[seconds.size() - 2][work];
        row.ratio = fmt::format("{:.2f} × the step before", growth);
        row.verdict = verdict(effort, growth <= kMostGrowth);
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace tabulon::bench
