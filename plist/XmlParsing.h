// Parsing XML so that it can be cancelled: a file with a million bookmarks takes the parser a second or more.
// What the tree means is its readers' affair.
#pragma once

#include "base/Progress.h"

#include <pugixml.hpp>

#include <string>

namespace tabulon {

enum class XmlOutcome {
    Whole,
    Damaged, ///< not well-formed, or too large for the memory
    Cancelled,
};

/// Parses `xml` in place with pugixml's `flags`. `document` looks into it, so it must live as long and stay
/// as it is. `progress` may be null; how far the parser is it does not tell.
XmlOutcome parseXml(std::string& xml, unsigned flags, pugi::xml_document& document, Progress* progress);

} // namespace tabulon
