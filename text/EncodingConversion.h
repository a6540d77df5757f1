// Texts in other encodings than UTF-8. Which encoding a file is in is its reader's affair.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// `bytes` in the encoding that ICU knows by this name, as UTF-8; each part that cannot be decoded is U+FFFD.
/// Nothing for a name that ICU does not know, or where it fails for want of memory. Linear.
std::optional<std::string> utf8FromEncoding(std::string_view bytes, const std::string& encoding);

} // namespace tabulon
