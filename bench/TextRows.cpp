// Scanning of plain text in memory.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "formats/import/TextScanner.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"

#include <fmt/format.h>

namespace tabulon::bench {

namespace {

constexpr double kLeastMegabytesPerSecond = 200;

Ref<Bookmark> scannedText(std::string_view text) {
    FakeBaseServices services;
    return readText(text, {services.services()}).value();
}

/// Returns the names and notes of a tree, line by line: prose in a dozen scripts, with colons and slashes,
/// and without a link.
std::string proseOf(const Bookmark& root) {
    std::string prose;
    walkBelow(root, [&prose](const Bookmark& node) {
        for (const std::string_view text : {node.itemName().view(), node.itemNote().view()})
            if (!text.empty())
                prose.append(text).append(": yes / no\n");
        return true;
    });
    return prose;
}

} // namespace

Row textScanRow(const Sample& sample, const Effort& effort) {
    const std::string prose = proseOf(*sample.tree);
    require(!scannedText(prose)->hasChildren(), "a link was found in a text without one");
    const Ref<Bookmark> found = scannedText(prose + "see https://example.org/end\n");
    require(found->hasChildren() && found->getChildren()->size() == 1 &&
                found->getChild()->itemURL().view() == "https://example.org/end",
            "the link at the end of a text was not found");

    const double ours = fastest(effort.runs, [&] { return scannedText(prose); });
    const double copying = fastest(effort.runs, [&] { return std::string(prose); });
    const double megabytes = static_cast<double>(prose.size()) / 1e6;
    return {
        fmt::format("scan {:.0f} MB of text without links", megabytes),
        fmt::format("{}, {:.0f} MB/s", milliseconds(ours), megabytes / ours),
        fmt::format("copying the same bytes: {}, {:.0f} MB/s", milliseconds(copying), megabytes / copying),
        fmt::format("{:.1f} × as long", ours / copying),
        fmt::format("{} MB/s", kLeastMegabytesPerSecond),
        verdict(effort, megabytes / ours >= kLeastMegabytesPerSecond)};
}

} // namespace tabulon::bench
