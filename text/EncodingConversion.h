// Conversion of other encodings to UTF-8, with ICU. The readers of files determine which encoding a file has.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// Returns `bytes`, which are in `encoding`, as UTF-8. Each part that cannot be decoded becomes U+FFFD.
/// `encoding` is any name or alias of ICU, such as "windows-1252". Returns `nullopt` for a name that ICU does
/// not know, for an empty name, and where ICU lacks memory. Linear, for any number of bytes.
std::optional<std::string> utf8FromEncoding(std::string_view bytes, const std::string& encoding);

} // namespace tabulon
