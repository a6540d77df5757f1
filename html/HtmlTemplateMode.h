// The insertion mode of a template's content. The first start tag in it decides in which mode it continues.
#pragma once

#include "html/HtmlBodyMode.h"

namespace tabulon::html {

/// The rules for the content of a template, until its first start tag.
class TemplateMode {
public:
    /// The objects must outlive this one.
    TemplateMode(BodyMode& body, HeadModes& head, Templates& templates)
        : body_(body), head_(head), templates_(templates) {}

    /// Processes a token. Inserts texts and the elements of the head. Returns Again for any other start tag,
    /// after it has set the mode that its element needs: that of the body, or of a part of a table. Ignores
    /// end tags other than that of the template. Requires: a template is open. The end of the page closes the
    /// template and is then processed again.
    Step process(const Token& token);

private:
    BodyMode& body_;
    HeadModes& head_;
    Templates& templates_;
};

} // namespace tabulon::html
