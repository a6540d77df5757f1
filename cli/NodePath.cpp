#include "cli/NodePath.h"

#include "model/TreeWalk.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <vector>

namespace tabulon::cli {
namespace {

// Removes the first index from the path and returns it, or `nullopt` for a number that does not fit into 64
// bits.
std::optional<std::size_t> takeIndex(std::string_view& path) {
    const std::string_view digits = path.substr(0, path.find('/'));
    path.remove_prefix(std::min(path.size(), digits.size() + 1));
    std::size_t index = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    return read.ec == std::errc() ? std::optional(index) : std::nullopt;
}

} // namespace

bool isNodePath(std::string_view text) {
    return text.empty() ||
           (text.find_first_not_of("0123456789/") == std::string_view::npos && !text.starts_with('/') &&
            !text.ends_with('/') && text.find("//") == std::string_view::npos);
}

Bookmark* nodeAt(Bookmark& root, std::string_view path) {
    Bookmark* node = &root;
    while (!path.empty()) {
        const std::optional<std::size_t> index = takeIndex(path);
        const ChildList* children = node->getChildren();
        if (!index || !children || *index >= children->size())
            return nullptr;
        node = children->at(*index);
    }
    return node;
}

void walkWithPaths(const Bookmark& root,
                   const std::function<bool(const Bookmark& node, const std::string& path)>& visit) {
    // One path is extended and cut during the walk. A level is the index of its next node, and the length of
    // its parent's path with a slash.
    struct Level {
        std::size_t next;
        std::size_t prefix;
    };
    std::string path;
    std::vector<Level> levels{{0, 0}};
    bool goesOn = true;
    walkBelow(
        root,
        [&](const Bookmark& node) {
            if (!goesOn)
                return false;
            Level& level = levels.back();
            path.resize(level.prefix);
            path += std::to_string(level.next++);
            goesOn = visit(node, path);
            if (node.getChildren() && goesOn) {
                path += '/';
                levels.push_back({0, path.size()});
            }
            return goesOn;
        },
        [&](const Bookmark&) { levels.pop_back(); });
}

} // namespace tabulon::cli
