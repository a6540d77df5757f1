// The end tags of the body.
#pragma once

#include "html/HtmlConstruction.h"
#include "html/HtmlFormattingRules.h"
#include "html/HtmlTemplates.h"

namespace tabulon::html {

/// The rules for end tags in the mode InBody. The object has no state of its own: all state is in the
/// Construction.
class BodyEndTags {
public:
    /// The objects must outlive this one.
    BodyEndTags(Construction& state, FormattingRules& formatting, Templates& templates)
        : state_(state), formatting_(formatting), templates_(templates) {}

    /// Processes an end tag in the mode InBody. Returns Again for "html", which the next mode processes, else
    /// Done. Requires: `token` is an end tag, and an element is open.
    Step process(const Token& token);

private:
    /// Processes the end tags other than those of template, body and html. One without a rule of its own
    /// closes the innermost element of its name.
    void endOther(const Token& token);
    /// Closes the form that `Construction::form` refers to, but not the elements that are open in it. In a
    /// template, closes the innermost form with everything in it.
    void endForm();
    /// Closes the innermost heading in scope, of whatever level, with everything in it.
    void endHeading();

    Construction& state_;
    FormattingRules& formatting_;
    Templates& templates_;
};

} // namespace tabulon::html
