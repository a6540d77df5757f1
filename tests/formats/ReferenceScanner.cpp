#include "tests/formats/ReferenceScanner.h"

#include "tests/formats/ReferenceText.h"

namespace tabulon::test {

char ReferenceScanner::byteAt(Position position) const {
    return position >= 0 && position < size() ? bytes_[static_cast<std::size_t>(position)] : '\0';
}

bool ReferenceScanner::standsAt(Position position, const std::string& pattern) const {
    for (std::size_t i = 0; i < pattern.size(); ++i)
        if (position + static_cast<Position>(i) >= size() ||
            byteAt(position + static_cast<Position>(i)) != pattern[i])
            return false;
    return true;
}

ReferenceScanner::Position ReferenceScanner::find(const std::string& pattern, Position from) const {
    for (Position position = from; position < size(); ++position)
        if (standsAt(position, pattern))
            return position;
    return kNone;
}

std::string ReferenceScanner::slice(Position from, Position to) const {
    std::string result;
    for (Position position = from; position < to; ++position)
        result += byteAt(position);
    return result;
}

std::vector<TreeLine> ReferenceScanner::scan(const std::string& bytes) {
    bytes_ = bytes;
    const int root = static_cast<int>(nodes_.size());
    nodes_.push_back({});
    current_ = root;
    for (Position cursor = 0; cursor != kNone && cursor < size();)
        cursor = step(cursor);
    std::vector<TreeLine> lines;
    addLines(root, 0, lines);
    return lines;
}

// Processes the next token from `cursor` on. Returns the next cursor, or `kNone` at the end of the scan.
ReferenceScanner::Position ReferenceScanner::step(Position cursor) {
    const Position hr = find("<HR>", cursor);
    const Position d = find("<D", cursor);
    const Position end = find("</DL>", cursor);
    if (d == kNone && end == kNone)
        return kNone;
    const Position first = d == kNone ? end : end == kNone ? d : std::min(d, end);
    if (hr != kNone && hr < first)
        return separator(hr);
    if (first == end) {
        if (nodes_[static_cast<std::size_t>(current_)].parent != -1)
            current_ = nodes_[static_cast<std::size_t>(current_)].parent;
        return end + 5;
    }
    if (byteAt(d + 2) == 'L') {
        if (const auto& children = nodes_[static_cast<std::size_t>(current_)].children; !children.empty())
            current_ = children.back();
        return d + 4;
    }
    if (byteAt(d + 2) == 'D')
        return description(d);
    if (byteAt(d + 5) == 'A')
        return link(d);
    if (byteAt(d + 5) == 'H')
        return heading(d);
    return d + 5;
}

ReferenceScanner::Position ReferenceScanner::separator(Position token) {
    append({.type = 10, .added = now_});
    return token + 4;
}

ReferenceScanner::Position ReferenceScanner::description(Position token) {
    const Position cursor = token + 4;
    const Position next = find("<", cursor);
    if (next == kNone)
        return kNone;
    Position end = next;
    if (byteAt(next - 1) == '\r' || byteAt(next - 1) == '\n')
        --end;
    if (end > cursor && last_ != -1)
        nodes_[static_cast<std::size_t>(last_)].line.note = referenceText(slice(cursor, end));
    return next - 1;
}

ReferenceScanner::Position ReferenceScanner::link(Position token) {
    Position anchor = token + 4;
    Position quote = kNone;
    for (Position from = token + 4;; from = quote + 1) {
        anchor = find("<A", from);
        const Position href = anchor == kNone ? kNone : find("HREF", anchor + 2);
        quote = href == kNone ? kNone : find("\"", href + 4);
        if (quote == kNone)
            return kNone;
        if (byteAt(quote + 1) != '#')
            break;
    }
    const Position urlEnd = find("\"", quote + 1);
    if (urlEnd == kNone)
        return kNone;
    TreeLine line;
    line.url = referenceText(slice(quote + 1, urlEnd));
    line.type = referenceType(*line.url);
    Position next = anchor + 6;
    line.name = "Untitled";
    if (byteAt(anchor + 2) == ' ') {
        const Position tagEnd = find(">", urlEnd + 1);
        const Position closing = tagEnd == kNone ? kNone : find("</A>", tagEnd + 1);
        if (closing == kNone)
            return kNone;
        line.name = linkName(tagEnd + 1, closing);
        next = closing + 4;
    }
    line.added = date("ADD_DATE=", token, next);
    line.modified = date("LAST_MODIFIED=", token, next);
    if (*line.name == "-")
        line.type = 10;
    append(line);
    return next;
}

std::string ReferenceScanner::linkName(Position from, Position to) const {
    std::string text = slice(from, to);
    while (!text.empty() && text.front() == '<' && text.find('>') != std::string::npos)
        text = text.substr(text.find('>') + 1);
    while (!text.empty() && text.back() == '>' && text.rfind('<') != std::string::npos)
        text = text.substr(0, text.rfind('<'));
    while (!text.empty() && std::string("\t\n\r ").find(text.front()) != std::string::npos)
        text = text.substr(1);
    if (text.empty())
        return "Untitled";
    text = text.substr(0, 1024);
    for (char& c : text)
        if (c == '\r' || c == '\n')
            c = ' ';
    return referenceText(text);
}

ReferenceScanner::Position ReferenceScanner::heading(Position token) {
    const Position closing = find("</H", token + 5);
    if (closing == kNone)
        return kNone;
    Position tagEnd = closing;
    while (byteAt(tagEnd) != '>') {
        --tagEnd;
        if (tagEnd < 0 || closing - tagEnd > 512)
            return kNone;
    }
    const Position next = closing + 5;
    TreeLine line;
    line.folder = true;
    line.name = referenceText(slice(tagEnd + 1, closing));
    if (line.name->empty())
        line.name = "Untitled";
    if (*line.name == "Toolbar Favorites" || *line.name == "Personal Toolbar Folder" ||
        *line.name == "Bookmarks Toolbar")
        line.name = "Favourites";
    line.added = date("ADD_DATE=", token, next);
    line.modified = date("LAST_MODIFIED=", token, next);
    line.autoTab = slice(token, std::min(next, size())).find("FOLDER_GROUP=\"true\"") != std::string::npos;
    append(line);
    return next;
}

std::optional<double> ReferenceScanner::date(const std::string& attribute, Position token,
                                             Position next) const {
    const Position found = find(attribute, token);
    if (found == kNone || found > next)
        return std::nullopt;
    const Position quote = found + static_cast<Position>(attribute.size());
    const Position end = find("\"", quote + 1);
    if (byteAt(quote) != '"' || end == kNone)
        return std::nullopt;
    constexpr double kLargest = 18446744073709551615.0;
    constexpr double kReference = 978307200.0; // nodes store seconds since 2001
    long double value = 0;
    for (Position i = quote + 1; i < end && byteAt(i) >= '0' && byteAt(i) <= '9'; ++i)
        value = value * 10 + (byteAt(i) - '0');
    return (value > kLargest ? kLargest : static_cast<double>(value)) - kReference + kReference;
}

void ReferenceScanner::append(TreeLine line) {
    last_ = static_cast<int>(nodes_.size());
    nodes_.push_back({std::move(line), current_});
    nodes_[static_cast<std::size_t>(current_)].children.push_back(last_);
}

void ReferenceScanner::addLines(int node, int level, std::vector<TreeLine>& lines) const {
    for (const int child : nodes_[static_cast<std::size_t>(node)].children) {
        lines.push_back(nodes_[static_cast<std::size_t>(child)].line);
        lines.back().level = level;
        addLines(child, level + 1, lines);
    }
}

} // namespace tabulon::test
