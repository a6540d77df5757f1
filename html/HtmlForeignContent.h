// The rules for SVG and MathML in a page ("foreign content").
#pragma once

#include "html/HtmlConstruction.h"

namespace tabulon::html {

/// Processes the tokens inside elements of SVG and MathML, except inside those whose content is HTML.
class ForeignContent {
public:
    /// `state` must outlive this object.
    explicit ForeignContent(Construction& state) : state_(state) {}

    /// Returns true if these rules are for the token at the current place: in SVG or MathML, except for texts
    /// and start tags in an element whose content is HTML. False for the end of the page, and if no element
    /// is open.
    bool takes(const Token& token) const;
    /// Processes a token. Returns AsHtml for one that the rules of the mode process, some of them after
    /// foreign elements were closed. Requires: `takes(token)`.
    Step process(const Token& token);

private:
    /// Inserts a text in which each NUL is replaced by U+FFFD.
    void insertText(std::string_view text);
    /// Inserts an element in the namespace of the current place, or leaves SVG and MathML for a tag that is
    /// not allowed in them.
    Step start(const Token& token);
    /// Closes the innermost element of the token's name. Returns AsHtml if an HTML element is inside it, and
    /// for br and p. Linear in the number of open elements; they are subtracted from the limit.
    Step end(const Token& token);
    /// Closes the innermost elements up to one whose content is HTML.
    void leave();

    Construction& state_;
};

} // namespace tabulon::html
