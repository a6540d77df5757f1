// The insertion mode of a template's content. The first start tag in it decides in which mode it continues.
#pragma once

#include "html/HtmlBodyMode.h"

namespace tabulon::html {

class TemplateMode {
public:
    /// The objects must outlive this one.
    TemplateMode(BodyMode& body, HeadModes& head, Templates& templates)
        : body_(body), head_(head), templates_(templates) {}

    /// Processes a token. Requires: a template is open.
    Step process(const Token& token);

private:
    BodyMode& body_;
    HeadModes& head_;
    Templates& templates_;
};

} // namespace tabulon::html
