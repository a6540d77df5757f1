// Import and export of XBEL in memory. The file to import has the dates that other programs write; the export
// has none.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "formats/export/XBEL.h"
#include "formats/import/XBELReader.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"
#include "text/XmlEntities.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <pugixml.hpp>

#include <ctime>
#include <memory>

namespace tabulon::bench {

namespace {

constexpr double kMostTimesAsLong = 3;

std::string attribute(const char* name, Date date) {
    return date.isNull() ? ""
                         : fmt::format(" {}=\"{:%Y-%m-%dT%H:%M:%S}+00:00\"", name,
                                       fmt::gmtime(static_cast<std::time_t>(date.unixSeconds())));
}

std::string element(const char* name, const Text& text) {
    return text.isEmpty() ? "" : fmt::format("<{0}>{1}</{0}>\n", name, escapeXmlEntities(text.view()));
}

/// Returns the tree in the form that other programs write: dates, valid separators, everything escaped once.
std::string xbelOf(const Bookmark& root) {
    std::string file =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xbel>\n<xbel version=\"1.0\">\n";
    const auto enter = [&file](const Bookmark& node) {
        const std::string added = attribute("added", node.itemDateAdded());
        if (node.isSeparator()) {
            file += "<separator/>\n";
        } else if (node.isFolder()) {
            file += "<folder folded=\"no\"" + added + ">\n" + element("title", node.itemName());
        } else {
            file += "<bookmark href=\"" + escapeXmlEntities(node.itemURL().view()) + "\"" + added +
                    attribute("modified", node.itemDateModified()) + ">\n" +
                    element("title", node.itemName()) + element("desc", node.itemNote());
            if (!node.itemTags().isEmpty())
                file += "<info><metadata owner=\"https://tags.example/tags\">" +
                        escapeXmlEntities(node.itemTags().view()) + "</metadata></info>\n";
            file += "</bookmark>\n";
        }
        return node.isFolder();
    };
    walkBelow(root, enter, [&file](const Bookmark&) { file += "</folder>\n"; });
    return file + "</xbel>\n";
}

/// Returns the values below a folder that the file can contain.
std::string essence(const Bookmark& root) {
    const auto seconds = [](Date date) {
        return date.isNull() ? std::string() : fmt::format("{}", date.unixSeconds());
    };
    std::string text;
    const auto enter = [&](const Bookmark& node) {
        if (node.isSeparator())
            text += "separator\n";
        else if (node.isFolder())
            text += fmt::format("folder\t{}\n", node.itemName().view());
        else
            text += fmt::format("link\t{}\t{}\t{}\t{}\t{}\t{}\n", node.itemName().view(),
                                node.itemURL().view(), node.itemNote().view(), node.itemTags().view(),
                                seconds(node.itemDateAdded()), seconds(node.itemDateModified()));
        return node.isFolder();
    };
    walkBelow(root, enter, [&text](const Bookmark&) { text += "end\n"; });
    return text;
}

Ref<Bookmark> imported(std::string_view xbel) {
    FakeBaseServices services;
    Result<Ref<Bookmark>> tree = readXBEL(xbel, {services.services()});
    require(tree.has_value(), "an XBEL file could not be read");
    return *std::move(tree);
}

} // namespace

Row xbelImportRow(const Sample& sample, const Effort& effort) {
    const std::string xbel = xbelOf(*sample.tree);
    require(essence(*imported(xbel)) == essence(*sample.tree), "an imported XBEL file is another tree");

    const double ours = fastest(effort.runs, [&] { return imported(xbel); });
    const double parsing = fastest(effort.runs, [&] {
        auto document = std::make_unique<pugi::xml_document>();
        require(document->load_buffer(xbel.data(), xbel.size()), "pugixml does not take the file");
        return document;
    });
    return {fmt::format("import {:.0f} MB of XBEL", static_cast<double>(xbel.size()) / 1e6),
            milliseconds(ours),
            fmt::format("pugixml's parse alone of the same bytes: {}", milliseconds(parsing)),
            fmt::format("{:.2f} × as long", ours / parsing),
            fmt::format("{} × as long", kMostTimesAsLong),
            verdict(effort, ours <= kMostTimesAsLong * parsing)};
}

Row xbelExportRow(const Sample& sample, const Effort& effort) {
    const auto exported = [&] { return exportToXBEL(*sample.tree, {}).value(); };
    const std::string xbel = exported();
    require(sizeOf(*imported(xbel)).links == sample.size.links, "an exported XBEL file has other links");

    const double ours = fastest(effort.runs, exported);
    const double copying = fastest(effort.runs, [&] { return std::string(xbel); });
    const double megabytes = static_cast<double>(xbel.size()) / 1e6;
    return {
        "export XBEL", fmt::format("{}, {:.0f} MB/s", milliseconds(ours), megabytes / ours),
        fmt::format("copying the same bytes: {}, {:.0f} MB/s", milliseconds(copying), megabytes / copying),
        fmt::format("{:.1f} × as long", ours / copying), "none"};
}

} // namespace tabulon::bench
