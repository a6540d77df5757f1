// Bytes as text, one byte at a time: UTF-8 decoding, entities and the kinds of links, for the literal
// scanner. Shares nothing with the program.
#pragma once

#include <string>

namespace tabulon::test {

/// UTF-8 decoded leniently, then unescaped.
std::string literalText(const std::string& bytes);

/// The type code that a link with this address has.
int literalType(const std::string& url);

} // namespace tabulon::test
