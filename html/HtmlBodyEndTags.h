// The end tags of the body.
#pragma once

#include "html/HtmlConstruction.h"
#include "html/HtmlFormattingRules.h"
#include "html/HtmlTemplates.h"

namespace tabulon::html {

class BodyEndTags {
public:
    /// The objects must outlive this one.
    BodyEndTags(Construction& state, FormattingRules& formatting, Templates& templates)
        : state_(state), formatting_(formatting), templates_(templates) {}

    /// Processes an end tag in the mode InBody.
    Step process(const Token& token);

private:
    void endOther(const Token& token);
    void endForm();
    void endHeading();

    Construction& state_;
    FormattingRules& formatting_;
    Templates& templates_;
};

} // namespace tabulon::html
