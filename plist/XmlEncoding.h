// Two tasks that the XML parser does not perform: decoding of encodings other than Unicode and Latin-1, and
// detection of references to the character zero.
#pragma once

#include "base/Error.h"

#include <string>
#include <string_view>

namespace tabulon {

/// Returns true if `xml`, in an encoding that contains ASCII, has a character reference to zero ("&#0;",
/// "&#x0;"). XML does not allow it, and the parser would end a text there. Linear.
bool refersToZero(std::string_view xml);

/// Returns the bytes of an XML file for the parser. They are a copy of `xml` where the parser knows the
/// encoding, else a byte-order mark and the text in UTF-8. The encoding is that of the XML declaration. A
/// file without a readable declaration at its first byte (because it is in UTF-16 or UTF-32, or has a
/// byte-order mark) is copied, since the parser detects its encoding. Fails with a sentence for an encoding
/// that ICU does not know, and for a file above 1 GiB that would have to be converted.
Result<std::string> xmlForParser(std::string_view xml);

} // namespace tabulon
