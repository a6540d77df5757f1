// Import and export of bookmark HTML in memory.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "model/TreeWalk.h"

#include <fmt/format.h>

namespace tabulon::bench {

namespace {

std::string seconds(Date date) {
    return date.isNull() ? "" : fmt::format("{}", date.unixSeconds());
}

/// Returns the values of a tree that a bookmark file can contain. Separators have no values there. White
/// space after a note is left out, because the scanner reads the end of the line and the next line's indent
/// as a part of the note.
std::string essence(const Bookmark& root) {
    std::string text;
    const auto enter = [&text](Bookmark& node) {
        if (node.isSeparator()) {
            text += "separator\n";
            return false;
        }
        const std::string_view note = node.itemNote().view();
        text +=
            fmt::format("{}\t{}\t{}\t{}\t{}\t{}\n", node.isFolder() ? "folder" : "link",
                        node.itemName().view(), node.itemURL().view(), seconds(node.itemDateAdded()),
                        seconds(node.itemDateModified()), note.substr(0, note.find_last_not_of(" \t\n") + 1));
        return true;
    };
    walkBelow(root, enter, [&text](Bookmark&) { text += "end\n"; });
    return text;
}

} // namespace

Row tagScanRow(const Sample& sample, const Effort& effort) {
    require(essence(*scanned(sample.html)) == essence(*sample.tree),
            "a scanned bookmark file is another tree");

    const double ours = fastest(effort.runs, [&] { return scanned(sample.html); });
    Row row{"tag-scan a bookmark file", milliseconds(ours), "lxml's HTML parser: not installed", "",
            "20 × faster"};
    const ParsedElsewhere theirs = parsedBy(TABULON_SYSTEM_PYTHON " '" TABULON_BENCH_DIR "/lxml_parse.py'",
                                            ".html", sample.html, effort.runs);
    if (theirs.count == 0) {
        row.verdict = verdict(effort, false);
        return row;
    }
    require(theirs.count == sample.size.links, "lxml sees another number of links");
    row.reference = fmt::format("lxml's HTML parser on the same file: {}", milliseconds(theirs.seconds));
    row.ratio = fmt::format("{:.1f} × faster", theirs.seconds / ours);
    row.verdict = verdict(effort, theirs.seconds >= 20 * ours);
    return row;
}

Row htmlExportRow(const Sample& sample, const Effort& effort) {
    require(exported(*sample.tree) == sample.html, "two exports of one tree differ");

    const double ours = fastest(effort.runs, [&] { return exported(*sample.tree); });
    const double copying = fastest(effort.runs, [&] { return std::string(sample.html); });
    const double megabytes = static_cast<double>(sample.html.size()) / 1e6;
    return {
        "export bookmark HTML", fmt::format("{}, {:.0f} MB/s", milliseconds(ours), megabytes / ours),
        fmt::format("copying the same bytes: {}, {:.0f} MB/s", milliseconds(copying), megabytes / copying),
        fmt::format("{:.1f} × as long", ours / copying), "none"};
}

} // namespace tabulon::bench
