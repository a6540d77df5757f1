// Whether the document type of a page makes browsers lay it out, and cut its tables, as those of old did.
#pragma once

#include "html/HtmlTokenizer.h"

namespace tabulon::html {

/// Requires a token of a document type.
bool isQuirky(const Token& doctype);

} // namespace tabulon::html
