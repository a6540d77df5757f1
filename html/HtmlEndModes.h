// The insertion modes after the body, and those of framesets.
#pragma once

#include "html/HtmlBodyMode.h"

namespace tabulon::html {

/// Each function processes a token in the mode of its name.
class EndModes {
public:
    /// The objects must outlive this one.
    EndModes(Construction& state, BodyMode& body, HeadModes& head, Templates& templates)
        : state_(state), body_(body), head_(head), templates_(templates) {}

    /// Also of the mode AfterAfterBody.
    Step afterBody(const Token& token);
    /// Inserts only framesets and the text of noframes: a frameset contains no other elements with links.
    Step inFrameset(const Token& token);
    /// Also of the mode AfterAfterFrameset.
    Step afterFrameset(const Token& token);

private:
    Construction& state_;
    BodyMode& body_;
    HeadModes& head_;
    Templates& templates_;
};

} // namespace tabulon::html
