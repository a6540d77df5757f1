// The rules for formatting elements: they are reopened after other elements have closed them, and moved when
// their end tag is before that of a block inside them (the standard's adoption agency algorithm).
#pragma once

#include "html/HtmlConstruction.h"

namespace tabulon::html {

/// Every function subtracts its steps from the limit of the Construction, because nested formatting elements
/// can be copied very often. Requires, for all functions: an element is open.
class FormattingRules {
public:
    /// `state` must outlive this object.
    explicit FormattingRules(Construction& state) : state_(state) {}

    /// Opens copies of the formatting elements after the last one that is open and after the last marker. The
    /// copies replace them in the list. Does nothing if all of them are open.
    void reopen();
    /// Processes the start tag of a formatting element other than a and nobr: reopens the elements before it,
    /// inserts it and adds it to the list.
    void start(const Token& token);
    /// Processes a start tag "a", which closes a link that is still open, because links cannot be nested.
    void startLink(const Token& token);
    /// Processes a start tag "nobr", which closes an open nobr in scope.
    void startNobr(const Token& token);
    /// Processes the end tag of a formatting element, in at most eight rounds of the algorithm.
    void end(const Token& token);

private:
    /// Inserts the element, opens it and adds it to the list.
    void add(const Token& token);
    /// Performs one round of the algorithm. Returns false if no further one is needed.
    bool endOnce(const Token& token);
    /// Moves the block at `furthest` out of the formatting element at `index`, and the content of the block
    /// into a copy of that element. Both are indexes of open elements; `entry` is that of the element in the
    /// list.
    void moveOutOf(std::size_t index, std::size_t furthest, std::size_t entry);
    /// Moves the block into copies of the formatting elements between both, which replace them, and closes
    /// the other elements between. Returns the outermost copy, or the block if there is none. Sets `bookmark`
    /// to the index in the list at which the element is inserted again.
    Node& moveUp(std::size_t index, std::size_t furthest, std::size_t& bookmark);

    Construction& state_;
};

} // namespace tabulon::html
