// The insertion modes up to the body, and those of elements whose content is text.
#pragma once

#include "html/HtmlConstruction.h"
#include "html/HtmlTemplates.h"

namespace tabulon::html {

/// Each function that returns a step processes a token in the mode of its name.
class HeadModes {
public:
    /// `state` and `templates` must outlive this object.
    HeadModes(Construction& state, Templates& templates) : state_(state), templates_(templates) {}

    Step initial(const Token& token);
    Step beforeHtml(const Token& token);
    Step beforeHead(const Token& token);
    Step inHead(Token& token);
    Step afterHead(Token& token);
    Step inText(const Token& token);

    /// Processes the start tag of an element with the trait kHeadContent, in any mode. Returns false, and
    /// does nothing, for any other.
    bool start(const Token& token);
    /// Inserts an element whose content up to its end tag is text.
    void startRaw(const Token& token, Content content);

private:
    Construction& state_;
    Templates& templates_;
    Mode modeBeforeText_ = Mode::Initial;
};

} // namespace tabulon::html
