// Texts of doubtful origin on their way to a terminal.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::cli {

/// `utf8` with a space in place of every character that could break the line or drive the terminal: control
/// characters, line and paragraph separators, marks that turn the direction of writing.
std::string onOneLine(std::string_view utf8);

/// `utf8` with control characters as backslash escapes: \n, \r, \t, else the code in two hexadecimal digits
/// (\x1b). Everything else stays as it is, backslashes too.
std::string escapingControls(std::string_view utf8);

} // namespace tabulon::cli
