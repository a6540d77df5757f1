// The insertion mode of the body. Other modes use its rules for what they have no rule for.
#pragma once

#include "html/HtmlBodyEndTags.h"
#include "html/HtmlBodyStartTags.h"

namespace tabulon::html {

class BodyMode {
public:
    /// The objects must outlive this one.
    BodyMode(Construction& state, FormattingRules& formatting, HeadModes& head, Templates& templates)
        : state_(state), formatting_(formatting), templates_(templates), startTags_(state, formatting, head),
          endTags_(state, formatting, templates) {}

    /// Processes a token. Ignores document types and comments.
    Step process(const Token& token);
    /// Inserts a text without its NUL characters, in the open formatting elements.
    void insertText(std::string_view text);

private:
    Construction& state_;
    FormattingRules& formatting_;
    Templates& templates_;
    BodyStartTags startTags_;
    BodyEndTags endTags_;
};

} // namespace tabulon::html
