// What the XML parser cannot do by itself: encodings beside Unicode's and Latin-1, and references to zero.
#pragma once

#include "base/Error.h"

#include <string>
#include <string_view>

namespace tabulon {

/// True for a reference to the character zero: XML has none, and the parser would end a text there.
bool refersToZero(std::string_view xml);

/// The bytes of an XML file for the parser: those of `xml` as they stand where the parser reads their
/// encoding, else in UTF-8 behind a byte-order mark. The encoding is what the XML declaration says; a file in
/// UTF-16 or UTF-32, or with a byte-order mark, tells by itself. Fails with a sentence for an encoding that
/// nobody knows.
Result<std::string> xmlForParser(std::string_view xml);

} // namespace tabulon
