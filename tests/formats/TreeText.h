// Trees as lines of text for expectations and for readable differences.
#pragma once

#include "model/Bookmark.h"

#include <optional>
#include <string>
#include <vector>

namespace tabulon::test {

/// The values of a node that bookmark files contain.
struct TreeLine {
    int level = 0;
    bool folder = false;
    int type = 0;
    std::optional<std::string> name = {};
    std::optional<std::string> url = {};
    std::optional<std::string> note = {};
    /// Seconds since 1970, or `nullopt` for a null date.
    std::optional<double> added = {};
    std::optional<double> modified = {};
    bool autoTab = false;
};

/// Returns a line for each node below `root` in document order, including the children of links.
std::vector<TreeLine> treeLines(const Bookmark& root);

/// Returns one line for each node, indented by two blanks for each level. A line contains the kind of the
/// node, its name in quotes, its address in angle brackets, the type of a link other than `kWebType`, its
/// dates in whole seconds since 1970 ("now" for the date `now`), the auto-tab flag, and its note in quotes.
/// Control characters are written as `\xNN`. Backslashes and quotes are preceded by a backslash. A missing
/// name or date added is "null"; other missing values are left out.
std::string treeText(const std::vector<TreeLine>& lines, double now);

} // namespace tabulon::test
