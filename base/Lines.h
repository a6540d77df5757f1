// Division of a text into lines at its line feeds.
#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace tabulon {

/// Returns the lines of `text` without their line feeds, empty lines included. A line feed at the end of
/// `text` ends the last line and does not begin another one. An empty text has no lines. A carriage return
/// before a line feed is part of its line. The lines are parts of `text` and valid as long as its bytes.
/// Linear. Carriage returns alone do not end a line. The bytes may have any encoding that contains ASCII.
inline std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

} // namespace tabulon
