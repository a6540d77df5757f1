// The start tags of the body.
#pragma once

#include "html/HtmlConstruction.h"
#include "html/HtmlFormattingRules.h"
#include "html/HtmlHeadModes.h"

#include <initializer_list>

namespace tabulon::html {

/// The rules for start tags in the mode InBody. The object has no state of its own: all state is in the
/// Construction.
class BodyStartTags {
public:
    /// The objects must outlive this one.
    BodyStartTags(Construction& state, FormattingRules& formatting, HeadModes& head)
        : state_(state), formatting_(formatting), head_(head) {}

    /// Processes a start tag in the mode InBody. Ignores tags that are not allowed there, such as those of
    /// the parts of a table. May change the mode. Requires: `token` is a start tag, and an element is open.
    void process(const Token& token);

private:
    /// Processes the tags that close an open paragraph, among others.
    void startGrouped(const Token& token);
    /// Processes the tags that do not. One without a rule of its own becomes an element in the open
    /// formatting elements.
    void startOther(const Token& token);
    /// Replaces the body by a frameset if the page has no content yet, else ignores the tag.
    void startFrameset(const Token& token);
    /// Closes an open paragraph, and a heading directly around the place. Headings cannot be nested.
    void startHeading(const Token& token);
    /// Ignores the tag inside another form, except in a template.
    void startForm(const Token& token);
    /// Closes an open element of `ends`, unless a special element other than address, div and p is open
    /// inside it. Linear in the number of open elements up to that one.
    void startListItem(const Token& token, std::initializer_list<Tag> ends);
    /// Closes a button that is in scope before, because buttons cannot be nested.
    void startButton(const Token& token);
    /// Closes an open paragraph before, except in quirks mode.
    void startTable(const Token& token);
    /// Closes a select that is in scope before.
    void startInput(const Token& token);
    /// Inserts a select. If one is in scope, closes that instead.
    void startSelect(const Token& token);
    /// Inserts an option or a group of options. In a select, closes the elements before whose end tag is
    /// optional. Elsewhere closes an option directly around the place.
    void startOption(const Token& token);
    /// Inserts an element without content in the open formatting elements.
    void startVoid(const Token& token);
    /// Begins SVG or MathML, as `space` says. An element that ends with "/>" has no content.
    void startForeign(const Token& token, Namespace space);

    Construction& state_;
    FormattingRules& formatting_;
    HeadModes& head_;
};

} // namespace tabulon::html
