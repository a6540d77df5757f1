// The rules for formatting elements: they are reopened after other elements have closed them, and moved when
// their end tag is before that of a block inside them (the standard's adoption agency algorithm).
#pragma once

#include "html/HtmlConstruction.h"

namespace tabulon::html {

class FormattingRules {
public:
    /// `state` must outlive this object.
    explicit FormattingRules(Construction& state) : state_(state) {}

    /// Opens copies of the formatting elements after the last one that is open and after the last marker.
    void reopen();
    /// Processes the start tag of a formatting element other than a and nobr.
    void start(const Token& token);
    /// Processes a start tag "a", which closes a link that is still open, because links cannot be nested.
    void startLink(const Token& token);
    void startNobr(const Token& token);
    /// Processes the end tag of a formatting element.
    void end(const Token& token);

private:
    void add(const Token& token);
    bool endOnce(const Token& token);
    void moveOutOf(std::size_t index, std::size_t furthest, std::size_t entry);
    Node& moveUp(std::size_t index, std::size_t furthest, std::size_t& bookmark);

    Construction& state_;
};

} // namespace tabulon::html
