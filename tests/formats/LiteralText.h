// Reference implementations of UTF-8 decoding, entities and the classification of links, for the literal
// scanner. They handle one byte at a time and use no code of the program.
#pragma once

#include <string>

namespace tabulon::test {

/// Returns `bytes` decoded as UTF-8 and then unescaped. Malformed parts become U+FFFD.
std::string literalText(const std::string& bytes);

/// Returns the type code of a link with the address `url`.
int literalType(const std::string& url);

} // namespace tabulon::test
