// Entities of XML text, both ways: shared by the HTML and XBEL exports and the importers.
#pragma once

#include "base/Text.h"

#include <string>
#include <string_view>

namespace tabulon {

/// Replaces ampersand, less-than, greater-than, double quote and apostrophe by their named entities;
/// everything else stays. UTF-8 in, UTF-8 out.
std::string escapeXmlEntities(std::string_view text);

/// The same, appended to `result`.
void appendXmlEscaped(std::string& result, std::string_view text);

/// Undoes, once and from left to right, the five named entities and decimal and hexadecimal character
/// references ("x" in either case). What is unknown, unterminated or refers to no character (0, a surrogate,
/// beyond U+10FFFF) stays as it stands. Linear.
std::string unescapeXmlEntities(std::string_view text);

/// The text that `utf8`, which must be valid, stands for: unescaped. Never null.
Text textOfXml(std::string_view utf8);

/// The text that `bytes` of a file stand for: decoded as UTF-8, each malformed part one U+FFFD, and then
/// unescaped. Never null.
Text textOfXmlBytes(std::string_view bytes);

} // namespace tabulon
