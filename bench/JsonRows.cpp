// Import of browsers' JSON in memory. The file is the corpus in the form that Chromium writes, made here.
#include "bench/Measure.h"
#include "bench/Rows.h"
#include "formats/import/ChromiumJSON.h"
#include "model/TreeWalk.h"
#include "platform/fake/FakeBaseServices.h"

#include <fmt/format.h>
#include <simdjson.h>

#include <memory>

namespace tabulon::bench {

namespace {

constexpr double kMostTimesAsLong = 1.5;

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '<')
            result += "\\u003C";
        else if (c == '"' || c == '\\')
            result.append("\\").append(1, c);
        else
            result += c;
    }
    return result + '"';
}

std::string timestamp(Date date) {
    constexpr double kSecondsFrom1601To1970 = 11'644'473'600;
    return date.isNull() ? "\"0\""
                         : fmt::format("\"{:.0f}000000\"", date.unixSeconds() + kSecondsFrom1601To1970);
}

/// Writes the form of the browser: keys in alphabetical order, an indent of three spaces, a folder's keys
/// after its children.
class ChromiumWriter {
public:
    std::string write(const Bookmark& root) {
        file_ = "{\n   \"checksum\": \"00000000000000000000000000000000\",\n   \"roots\": {\n      "
                "\"bookmark_bar\": ";
        open();
        walkBelow(
            root,
            [&](Bookmark& node) {
                if (node.isSeparator())
                    return false;
                file_ += first_ ? "" : ", ";
                if (node.isFolder())
                    open();
                else
                    link(node);
                return node.isFolder();
            },
            [&](Bookmark& folder) { close(folder); });
        close(root);
        return file_ + "\n   },\n   \"version\": 1\n}\n";
    }

private:
    void open() {
        file_ += "{\n";
        indent_ += 3;
        file_.append(indent_, ' ').append("\"children\": [ ");
        indent_ += 3;
        first_ = true;
    }

    void close(const Bookmark& folder) {
        indent_ -= 3;
        file_ += " ],\n";
        field("date_added", timestamp(folder.itemDateAdded()));
        field("date_last_used", "\"0\"");
        field("date_modified", timestamp(folder.itemDateModified()));
        identify();
        field("name", quoted(folder.itemName().view()));
        end("type", "\"folder\"");
    }

    void link(const Bookmark& node) {
        file_ += "{\n";
        indent_ += 3;
        field("date_added", timestamp(node.itemDateAdded()));
        field("date_last_used", "\"0\"");
        if (!node.itemDateModified().isNull())
            field("date_modified", timestamp(node.itemDateModified()));
        identify();
        if (!node.itemNote().isNull())
            field("meta_info", "{\n" + std::string(indent_ + 3, ' ') + "\"Description\": " +
                                   quoted(node.itemNote().view()) + "\n" + std::string(indent_, ' ') + "}");
        field("name", quoted(node.itemName().view()));
        field("type", "\"url\"");
        end("url", quoted(node.itemURL().view()));
    }

    void identify() {
        ++id_;
        field("guid", fmt::format("\"{0:08x}-1234-4{0:03x}-8abc-{0:012x}\"", id_ & 0xFFF));
        field("id", fmt::format("\"{}\"", id_));
    }

    void field(std::string_view key, const std::string& value) { line(key, value, ",\n"); }
    void end(std::string_view key, const std::string& value) {
        line(key, value, "\n");
        indent_ -= 3;
        file_.append(indent_, ' ').append("}");
        first_ = false;
    }
    void line(std::string_view key, const std::string& value, std::string_view after) {
        file_.append(indent_, ' ').append("\"").append(key).append("\": ").append(value).append(after);
    }

    std::string file_;
    std::size_t indent_ = 6;
    std::uint64_t id_ = 0;
    bool first_ = true;
};

/// Returns the values below a folder that the browser's file can contain.
std::string essence(const Bookmark& parent) {
    const auto seconds = [](Date date) {
        return date.isNull() ? std::string() : fmt::format("{}", date.unixSeconds());
    };
    std::string text;
    const auto enter = [&](Bookmark& node) {
        if (node.isFolder())
            text += fmt::format("folder\t{}\t{}\n", node.itemName().view(), seconds(node.itemDateAdded()));
        else if (!node.isSeparator())
            text += fmt::format("link\t{}\t{}\t{}\t{}\t{}\t{}\n", node.itemName().view(),
                                node.itemURL().view(), seconds(node.itemDateAdded()),
                                seconds(node.itemDateModified()), node.itemNote().view(), node.getType());
        return true;
    };
    walkBelow(parent, enter, [&text](Bookmark&) { text += "end\n"; });
    return text;
}

Ref<Bookmark> imported(std::string_view json) {
    FakeBaseServices services;
    return readChromiumBookmarks(json, {services.services()}).value();
}

} // namespace

Row chromiumImportRow(const Sample& sample, const Effort& effort) {
    const std::string json = ChromiumWriter().write(*sample.tree);
    require(essence(*imported(json)->getChild()) == essence(*sample.tree),
            "the imported file of a browser is another tree");

    const double ours = fastest(effort.runs, [&] { return imported(json); });
    const simdjson::padded_string padded(json);
    const double parsing = fastest(effort.runs, [&] {
        auto parser = std::make_unique<simdjson::dom::parser>();
        require(parser->parse(padded).error() == simdjson::SUCCESS, "simdjson does not take the file");
        return parser;
    });
    return {fmt::format("import {:.0f} MB of Chromium's JSON", static_cast<double>(json.size()) / 1e6),
            milliseconds(ours),
            fmt::format("simdjson's DOM parse alone of the same bytes, padded: {}", milliseconds(parsing)),
            fmt::format("{:.2f} × as long", ours / parsing),
            fmt::format("{} × as long", kMostTimesAsLong),
            verdict(effort, ours <= kMostTimesAsLong * parsing)};
}

} // namespace tabulon::bench
