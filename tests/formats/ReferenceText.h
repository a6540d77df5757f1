// Reference implementations of UTF-8 decoding, entities and the classification of links, for the reference
// scanner. They handle one byte at a time and use no code of the program.
#pragma once

#include <string>

namespace tabulon::test {

/// Returns `bytes` decoded as UTF-8 and then unescaped. Malformed parts become U+FFFD.
std::string referenceText(const std::string& bytes);

/// Returns the type code of a link with the address `url`.
int referenceType(const std::string& url);

} // namespace tabulon::test
