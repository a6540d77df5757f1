// The rules for SVG and MathML in a page ("foreign content").
#pragma once

#include "html/HtmlConstruction.h"

namespace tabulon::html {

class ForeignContent {
public:
    /// `state` must outlive this object.
    explicit ForeignContent(Construction& state) : state_(state) {}

    /// Returns true if these rules are for the token at the current place.
    bool takes(const Token& token) const;
    /// Processes a token. Returns AsHtml for one that the rules of the mode process, some of them after
    /// foreign elements were closed. Requires: `takes(token)`.
    Step process(const Token& token);

private:
    void insertText(std::string_view text);
    Step start(const Token& token);
    Step end(const Token& token);
    void leave();

    Construction& state_;
};

} // namespace tabulon::html
