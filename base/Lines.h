// A text as its lines.
#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace tabulon {

/// What stands between the line feeds, empty lines too, without an empty one behind the last line feed. The
/// pieces look into `text`; a carriage return belongs to its line.
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
