// The labels of encodings in web pages, and the names of these encodings in ICU.
#pragma once

#include <optional>
#include <string_view>

namespace tabulon {

/// Returns ICU's name of the encoding that browsers use for `label`, or an empty view for UTF-8. Letter case,
/// and ASCII white space around the label, do not count.
///
/// Some labels select another encoding than they name, as in browsers: "iso-8859-1" and "ascii" windows-1252,
/// "gb2312" GB 18030, "utf-16" UTF-8. Returns `nullopt` for a label that browsers do not know, and for
/// ISO-8859-16, which ICU does not have. The name is constant.
std::optional<std::string_view> converterForLabel(std::string_view label);

} // namespace tabulon
