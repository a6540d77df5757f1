// Functions that the exports to text formats share.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

/// Appends `level` tab characters. Does nothing if `level` is 0 or negative.
void doIndent(std::string& text, int level);

/// Returns a note as one line: double quotes become apostrophes; each tab, line feed and carriage return
/// becomes one space. All other bytes are copied.
std::string tidyPart(std::string_view text);

} // namespace tabulon
