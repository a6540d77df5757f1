// One character reference of HTML → its characters. Where references are looked for is the tokenizer's
// affair.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::html {

enum class ReferencePlace { Text, Attribute };

/// Reads the reference at the beginning of `source`, which begins with "&". Appends what it stands for to
/// `text` and gives how many bytes it has; 0, with nothing appended, where it is none. In an attribute a name
/// without its semicolon is none in front of "=", a letter or a digit.
std::size_t readCharacterReference(std::string_view source, ReferencePlace place, std::string& text);

} // namespace tabulon::html
