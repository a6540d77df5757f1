// Opening and saving a document, in memory: no disk is measured.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "model/ArchiveWriter.h"

#include <fmt/format.h>
#include <plist/plist.h>

#include <cstdlib>
#include <memory>

namespace tabulon::bench {

namespace {

struct FreePlist {
    void operator()(void* plist) const { plist_free(plist); }
};
using Plist = std::unique_ptr<void, FreePlist>;

Plist readWithLibplist(const std::string& archive) {
    plist_t plist = nullptr;
    plist_from_bin(archive.data(), static_cast<std::uint32_t>(archive.size()), &plist);
    return Plist(plist);
}

/// Objects of the archive that have a URL key: every node has. By iterator, since libplist looks for an index
/// from the front of a list.
std::size_t nodesIn(plist_t archive) {
    const plist_t objects = plist_dict_get_item(archive, "$objects");
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(objects, &iterator);
    std::size_t nodes = 0;
    for (plist_t item = nullptr; plist_array_next_item(objects, iterator, &item), item;)
        if (plist_get_node_type(item) == PLIST_DICT && plist_dict_get_item(item, "URL"))
            ++nodes;
    std::free(iterator);
    return nodes;
}

} // namespace

Row openRow(const Sample& sample, const Effort& effort) {
    require(writeDocumentArchive(*opened(sample.archive)) == sample.archive,
            "an opened document is another document");
    require(nodesIn(readWithLibplist(sample.archive).get()) == sample.size.nodes + 1,
            "libplist sees other nodes");

    const double ours = fastest(effort.runs, [&] { return opened(sample.archive); });
    const double theirs = fastest(effort.runs, [&] { return readWithLibplist(sample.archive); });
    return {"open a document (archive to nodes)",
            milliseconds(ours),
            fmt::format("libplist `plist_from_bin` of the same bytes: {}", milliseconds(theirs)),
            fmt::format("{:.1f} × faster", theirs / ours),
            "10 × faster",
            verdict(effort, theirs >= 10 * ours)};
}

Row saveRow(const Sample& sample, const Effort& effort) {
    require(writeDocumentArchive(*sample.tree) == sample.archive, "two archives of one tree differ");

    // A document that was opened, as those are that people save.
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
