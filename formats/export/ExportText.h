// The small steps that the text-like exports share.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

/// Appends `level` tab characters; none for 0 and less.
void doIndent(std::string& text, int level);

/// A note on one line: double quotes become apostrophes; tabs, line feeds and carriage returns one space
/// each.
std::string tidyPart(std::string_view text);

} // namespace tabulon
