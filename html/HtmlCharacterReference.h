// Decoding of one character reference of HTML ("&amp;", "&#38;"). The tokenizer finds the references in a
// page.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::html {

/// Where a reference is: in a text, or in the value of an attribute.
enum class ReferencePlace { Text, Attribute };

/// Decodes the reference that `source` begins with, and appends its characters to `text`, in UTF-8. Returns
/// the size of the reference in bytes, or 0 and appends nothing if `source` does not begin with a reference.
/// In an attribute, a name without its semicolon before "=", a letter or a digit is no reference. A number
/// that names no character becomes U+FFFD; 0x80 to 0x9F are characters of windows-1252. Requires: `source`
/// begins with "&".
std::size_t readCharacterReference(std::string_view source, ReferencePlace place, std::string& text);

} // namespace tabulon::html
