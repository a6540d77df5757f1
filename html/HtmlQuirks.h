// Quirks mode: the document types for which browsers build and lay out a page like old browsers. Here it only
// affects tables in paragraphs.
#pragma once

#include "html/HtmlTokenizer.h"

namespace tabulon::html {

/// Returns true if `doctype` sets quirks mode by the standard's lists of identifiers. Requires: a token of a
/// document type.
bool isQuirky(const Token& doctype);

} // namespace tabulon::html
