// The start tags of the body.
#pragma once

#include "html/HtmlConstruction.h"
#include "html/HtmlFormattingRules.h"
#include "html/HtmlHeadModes.h"

#include <initializer_list>

namespace tabulon::html {

class BodyStartTags {
public:
    /// The objects must outlive this one.
    BodyStartTags(Construction& state, FormattingRules& formatting, HeadModes& head)
        : state_(state), formatting_(formatting), head_(head) {}

    /// Processes a start tag in the mode InBody.
    void process(const Token& token);

private:
    void startGrouped(const Token& token);
    void startOther(const Token& token);
    void startFrameset(const Token& token);
    void startHeading(const Token& token);
    void startForm(const Token& token);
    void startListItem(const Token& token, std::initializer_list<Tag> ends);
    void startButton(const Token& token);
    void startTable(const Token& token);
    void startInput(const Token& token);
    void startSelect(const Token& token);
    void startOption(const Token& token);
    void startVoid(const Token& token);
    void startForeign(const Token& token, Namespace space);

    Construction& state_;
    FormattingRules& formatting_;
    HeadModes& head_;
};

} // namespace tabulon::html
