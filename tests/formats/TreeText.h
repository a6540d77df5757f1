// Trees as lines of text, so that a test can say what it expects and show what differs.
#pragma once

#include "model/Bookmark.h"

#include <optional>
#include <string>
#include <vector>

namespace tabulon::test {

/// What a bookmark file can tell of a node.
struct TreeLine {
    int level = 0;
    bool folder = false;
    int type = 0;
    std::optional<std::string> name = {};
    std::optional<std::string> url = {};
    std::optional<std::string> note = {};
    /// Seconds since 1970, or nothing for a null date.
    std::optional<double> added = {};
    std::optional<double> modified = {};
    bool autoTab = false;
};

/// The lines of everything below `root`, in document order, links with children included.
std::vector<TreeLine> treeLines(const Bookmark& root);

/// One line a node, two blanks a level: what it is, its name in quotes, its address in angle brackets, the
/// type of a link where it is not 0, its dates ("now" for the date `now`), the auto-tab flag, its note in
/// quotes. Control characters and quotes are written as escapes.
std::string treeText(const std::vector<TreeLine>& lines, double now);

} // namespace tabulon::test
