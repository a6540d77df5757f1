// The insertion modes after the body, and those of framesets.
#pragma once

#include "html/HtmlBodyMode.h"

namespace tabulon::html {

/// Each function processes a token in the mode of its name and returns what follows. All of them close the
/// innermost template at the end of the page, or stop if there is none.
class EndModes {
public:
    /// The objects must outlive this one.
    EndModes(Construction& state, BodyMode& body, HeadModes& head, Templates& templates)
        : state_(state), body_(body), head_(head), templates_(templates) {}

    /// Processes a token after the body; also of the mode AfterAfterBody. White space is processed as in the
    /// body. Other content continues in the mode InBody. Ignores the tags of html.
    Step afterBody(const Token& token);
    /// Inserts only framesets and the text of noframes: a frameset contains no other elements with links. The
    /// end tag of the outermost frameset sets the mode AfterFrameset.
    Step inFrameset(const Token& token);
    /// Processes a token after a frameset; also of the mode AfterAfterFrameset. Inserts only the text of
    /// noframes.
    Step afterFrameset(const Token& token);

private:
    Construction& state_;
    BodyMode& body_;
    HeadModes& head_;
    Templates& templates_;
};

} // namespace tabulon::html
