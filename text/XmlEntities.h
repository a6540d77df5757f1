// Escaping and unescaping of XML text, for the HTML and XBEL exports and the importers. The entities of HTML
// are in html/HtmlEntityTable.h.
#pragma once

#include "base/Text.h"

#include <string>
#include <string_view>

namespace tabulon {

/// Returns `text`, UTF-8, with ampersand, less-than, greater-than, double quote and apostrophe replaced by
/// their named entities. All other bytes are unchanged. Linear.
std::string escapeXmlEntities(std::string_view text);

/// Appends the result of `escapeXmlEntities` to `result`.
void appendXmlEscaped(std::string& result, std::string_view text);

/// Returns `text`, UTF-8, with the five named entities and the decimal and hexadecimal character references
/// ("x" in either case) replaced by their characters. Replaced text is not unescaped again. A reference that
/// is unknown, has no ";" or does not name a character (0, a surrogate, above U+10FFFF) is unchanged. Linear.
std::string unescapeXmlEntities(std::string_view text);

/// Returns the unescaped text of `utf8`; never null. Requires: valid UTF-8.
Text textOfXml(std::string_view utf8);

/// Returns the unescaped text of `bytes`, decoded as UTF-8; never null. Each malformed part becomes one
/// U+FFFD.
Text textOfXmlBytes(std::string_view bytes);

} // namespace tabulon
