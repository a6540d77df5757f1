// Untrusted texts for the output to a terminal.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::cli {

/// Returns `utf8` with a space for every character that could break the line or control the terminal: control
/// characters, line and paragraph separators, and marks that change the direction of writing.
std::string onOneLine(std::string_view utf8);

/// Returns `utf8` with control characters as backslash escapes: \n, \r, \t, else the code in two hexadecimal
/// digits (\x1b). All other bytes are copied, including backslashes.
std::string escapingControls(std::string_view utf8);

} // namespace tabulon::cli
