// Entities of XML text, both ways: shared by the HTML and XBEL exports and the importers.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

/// Replaces ampersand, less-than, greater-than, double quote and apostrophe by their named entities;
/// everything else stays. UTF-8 in, UTF-8 out.
std::string escapeXmlEntities(std::string_view text);

/// Undoes, once and from left to right, the five named entities and decimal and hexadecimal character
/// references. What is unknown, unterminated or refers to no character (0, a surrogate, beyond U+10FFFF)
/// stays as it stands. Linear.
std::string unescapeXmlEntities(std::string_view text);

} // namespace tabulon
