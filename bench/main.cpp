// tabulon_bench: prints the table of measurements. Ends with status 1 when an answer is wrong or a target is
// missed.
#include "bench/Rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

using namespace tabulon::bench;

namespace {

constexpr std::string_view kUsage =
    "usage: tabulon_bench              measures and judges\n"
    "       tabulon_bench --row NAME   measures and judges one row of the first table\n"
    "       tabulon_bench --quick      runs everything once on small trees, judges nothing\n"
    "       tabulon_bench --write-corpus LINKS FILE.tbln\n";

constexpr std::size_t kLinks = 100'000;
constexpr Effort kWholeEffort{.runs = 7, .judged = true};

struct Work {
    std::string_view name;
    Row (*measure)(const Sample& sample, const Effort& effort);
};

constexpr Work kWorks[] = {
    {"open", openRow},
    {"save", saveRow},
    {"tag-scan", tagScanRow},
    {"html-export", htmlExportRow},
    {"xbel-import", xbelImportRow},
    {"xbel-export", xbelExportRow},
    {"text-scan", textScanRow},
    {"json-import", chromiumImportRow},
    {"duplicates", duplicatesRow},
    {"sort", sortRow},
    {"find", findRow},
    {"find-large", findInLargeDocumentRow},
    {"edit", editRow},
    {"memory", memoryRow},
};

bool print(const std::vector<Row>& rows) {
    fmt::print("{}", markdown(rows));
    std::fflush(stdout);
    return std::none_of(rows.begin(), rows.end(),
                        [](const Row& row) { return row.verdict == Verdict::Missed; });
}

int measure(std::size_t links, const std::vector<std::size_t>& growthSizes, const Effort& effort) {
    bool met = true;
    {
        const Sample sample(links);
        fmt::print(
            "{} links, {} folders up to {} deep, {} separators: {:.1f} MB of HTML, {:.1f} MB of archive.\n\n",
            sample.size.links, sample.size.folders, sample.size.depth, sample.size.separators,
            static_cast<double>(sample.html.size()) / 1e6, static_cast<double>(sample.archive.size()) / 1e6);
        std::vector<Row> rows;
        for (const Work& work : kWorks)
            rows.push_back(work.measure(sample, effort));
        met = print(rows);
    }
    fmt::print("\nGrowth:\n\n");
    met = print(growthRows(growthSizes, effort)) && met;
    return met ? 0 : 1;
}

int measureRow(std::string_view name) {
    const auto* const work = std::ranges::find(kWorks, name, &Work::name);
    if (work == std::end(kWorks)) {
        fmt::print(stderr, "tabulon_bench: there is no row \"{}\"\n", name);
        return 2;
    }
    return print({work->measure(Sample(kLinks), kWholeEffort)}) ? 0 : 1;
}

int writeCorpus(const char* links, const char* path) {
    const Sample sample(std::strtoul(links, nullptr, 10));
    std::ofstream file(path, std::ios::binary);
    file.write(sample.archive.data(), static_cast<std::streamsize>(sample.archive.size()));
    file.close();
    require(file.good(), "the corpus could not be written");
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view command = argc > 1 ? argv[1] : "";
    if (argc == 1)
        return measure(kLinks, {10'000, 100'000, 1'000'000}, kWholeEffort);
    if (command == "--row" && argc == 3)
        return measureRow(argv[2]);
    if (command == "--quick" && argc == 2)
        return measure(1'000, {500, 1'000}, {.runs = 1, .judged = false});
    if (command == "--memory-of" && argc == 3)
        return printMemoryOfDocument(argv[2]);
    if (command == "--write-corpus" && argc == 4)
        return writeCorpus(argv[2], argv[3]);
    fmt::print(stderr, "{}", kUsage);
    return 2;
}
