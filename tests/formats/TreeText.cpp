#include "tests/formats/TreeText.h"

#include "model/TreeWalk.h"

#include <fmt/format.h>

namespace tabulon::test {
namespace {

std::optional<std::string> stringOf(const Text& text) {
    return text.isNull() ? std::nullopt : std::optional(text.string());
}

std::optional<double> secondsOf(Date date) {
    return date.isNull() ? std::nullopt : std::optional(date.unixSeconds());
}

std::string quoted(const std::optional<std::string>& text, char open, char close) {
    if (!text)
        return "null";
    std::string result(1, open);
    for (const char c : *text) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            result += fmt::format("\\x{:02X}", static_cast<unsigned char>(c));
        else if (c == '\\' || c == '"')
            (result += '\\') += c;
        else
            result += c;
    }
    return result + close;
}

std::string dateText(const std::optional<double>& date, double now) {
    if (!date)
        return "null";
    return *date == now ? "now" : fmt::format("{:.0f}", *date);
}

std::string lineText(const TreeLine& line, double now) {
    std::string text(static_cast<std::size_t>(line.level) * 2, ' ');
    text += line.folder ? "folder" : line.type == kSeparatorType ? "separator" : "link";
    text += ' ' + quoted(line.name, '"', '"');
    if (line.url)
        text += ' ' + quoted(line.url, '<', '>');
    if (!line.folder && line.type != kWebType && line.type != kSeparatorType)
        text += fmt::format(" type {}", line.type);
    text += " added " + dateText(line.added, now);
    if (line.modified)
        text += " modified " + dateText(line.modified, now);
    if (line.autoTab)
        text += " auto-tab";
    if (line.note)
        text += " note " + quoted(line.note, '"', '"');
    return text + '\n';
}

} // namespace

std::vector<TreeLine> treeLines(const Bookmark& root) {
    std::vector<TreeLine> lines;
    int level = 0;
    walkBelow(
        root,
        [&](const Bookmark& node) {
            lines.push_back({level, node.isFolder(), node.getType(), stringOf(node.itemName()),
                             stringOf(node.itemURL()), stringOf(node.itemNote()),
                             secondsOf(node.itemDateAdded()), secondsOf(node.itemDateModified()),
                             node.getAutoTab()});
            level += node.getChildren() ? 1 : 0;
            return node.getChildren() != nullptr;
        },
        [&](const Bookmark&) { --level; });
    return lines;
}

std::string treeText(const std::vector<TreeLine>& lines, double now) {
    std::string text;
    for (const TreeLine& line : lines)
        text += lineText(line, now);
    return text;
}

} // namespace tabulon::test
