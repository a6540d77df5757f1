// The names that pages have for encodings, as browsers take them, and what ICU calls the same.
#pragma once

#include <optional>
#include <string_view>

namespace tabulon {

/// ICU's name of the encoding that browsers take for `label`, in any case and with blanks around it; empty
/// for UTF-8. Many names stand for more than they say: "iso-8859-1" and "ascii" for windows-1252, "gb2312"
/// for GB 18030. Nothing for a name that is no encoding of a page, and for the one of them that ICU does not
/// have (ISO-8859-16).
std::optional<std::string_view> converterForLabel(std::string_view label);

} // namespace tabulon
