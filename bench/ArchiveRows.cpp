// Opening and saving a document in memory. No disk access is measured.
#include "bench/Measure.h"
#include "bench/Plist.h"
#include "bench/Rows.h"
#include "model/ArchiveWriter.h"

#include <fmt/format.h>

namespace tabulon::bench {

Row openRow(const Sample& sample, const Effort& effort) {
    require(writeDocumentArchive(*opened(sample.archive)) == sample.archive,
            "an opened document is another document");
    // libplist with the system's allocator, as in other programs.
    const ParsedElsewhere theirs =
        parsedBy("'" TABULON_LIBPLIST_PARSE "'", ".tbln", sample.archive, effort.runs);
    require(theirs.count == sample.size.nodes + 1, "libplist sees other nodes");

    const double ours = fastest(effort.runs, [&] { return opened(sample.archive); });
    const double withOurMemory = fastest(effort.runs, [&] { return plistOf(sample.archive); });
    return {"open a document (archive to nodes)",
            milliseconds(ours),
            fmt::format("libplist `plist_from_bin` of the same bytes: {} ({} with our allocator)",
                        milliseconds(theirs.seconds), milliseconds(withOurMemory)),
            fmt::format("{:.1f} × faster ({:.1f} ×)", theirs.seconds / ours, withOurMemory / ours),
            "10 × faster",
            verdict(effort, theirs.seconds >= 10 * ours)};
}

Row saveRow(const Sample& sample, const Effort& effort) {
    require(writeDocumentArchive(*sample.tree) == sample.archive, "two archives of one tree differ");

    // A document that was opened, as is usual before a save.
    const Ref<Bookmark> tree = opened(sample.archive);
    const double ours = fastest(effort.runs, [&] { return writeDocumentArchive(*tree); });
    const double reading = fastest(effort.runs, [&] { return opened(sample.archive); });
    return {"save a document (nodes to archive)",
            milliseconds(ours),
            fmt::format("reading it: {}", milliseconds(reading)),
            fmt::format("{:.2f} × as long", ours / reading),
            "1.5 × as long",
            verdict(effort, ours <= 1.5 * reading)};
}

} // namespace tabulon::bench
