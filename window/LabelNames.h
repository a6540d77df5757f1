// The names of the labels, as keys of the program's texts.
#pragma once

#include <array>
#include <string_view>

namespace tabulon {

/// The keys by label number; number 0 is no label.
inline constexpr std::array<std::string_view, 12> kLabelNameKeys = {
    "LabelNone",  "LabelOrange", "LabelRed",    "LabelMagenta", "LabelLightBlue", "LabelBlue",
    "LabelGreen", "LabelBrown",  "LabelPurple", "LabelGray",    "LabelYellow",    "LabelCyan"};

} // namespace tabulon
