// The insertion mode of the body. Other modes use its rules for what they have no rule for.
#pragma once

#include "html/HtmlBodyEndTags.h"
#include "html/HtmlBodyStartTags.h"

namespace tabulon::html {

/// The rules of the mode InBody, and the place where the rules for its start tags and end tags are owned.
class BodyMode {
public:
    /// None of the arguments is owned. Requires: they outlive this object.
    BodyMode(Construction& state, FormattingRules& formatting, HeadModes& head, Templates& templates)
        : state_(state), formatting_(formatting), templates_(templates), startTags_(state, formatting, head),
          endTags_(state, formatting, templates) {}

    /// Processes a token. Ignores document types and comments. The end of the page closes the innermost
    /// template, or stops if there is none. Returns what follows. Requires: an element is open.
    Step process(const Token& token);
    /// Inserts a text without its NUL characters, in the open formatting elements. Does nothing if no other
    /// characters are left. A text that is not blank ends the time in which a frameset can replace the body.
    /// Requires: `text` is valid as long as the tree, and an element is open.
    void insertText(std::string_view text);

private:
    Construction& state_;
    FormattingRules& formatting_;
    Templates& templates_;
    BodyStartTags startTags_;
    BodyEndTags endTags_;
};

} // namespace tabulon::html
