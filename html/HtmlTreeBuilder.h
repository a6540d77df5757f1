// The tree of a page, by the tree construction of the WHATWG's HTML standard, with scripting enabled but
// without running scripts. The rules are those that parse5 8.1.1 implements (an npm package, November 2026),
// with the parser of "select" that the standard adopted in 2025: its content is that of the body, as in
// Chromium 156, with whose links the tests compare. Not implemented: declarative shadow roots (2024), because
// links in shadow trees do not count as links of a page. The other differences are in docs/formats.md.
#pragma once

#include "base/Progress.h"
#include "html/HtmlNode.h"

#include <string_view>

namespace tabulon::html {

/// How the construction of a tree has ended.
enum class BuildOutcome {
    Whole,     ///< the tree contains the whole page
    Entangled, ///< the page needs more steps than the limit for its size
    Cancelled, ///< by the user, through the progress
};

/// Builds the tree of `source` in `tree`. After an outcome other than Whole the tree contains what was built
/// until then. Linear: the number of steps is limited by a constant and a constant number for each byte. With
/// more than 512 open elements a new one becomes a sibling of its parent. `progress` may be nullptr.
/// Requires: `source` is well-formed UTF-8 without carriage returns and outlives the tree, and the tree is
/// new.
BuildOutcome buildTree(std::string_view source, Tree& tree, Progress* progress = nullptr);

} // namespace tabulon::html
