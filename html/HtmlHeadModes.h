// The insertion modes up to the body, and those of elements whose content is text.
#pragma once

#include "html/HtmlConstruction.h"
#include "html/HtmlTemplates.h"

namespace tabulon::html {

/// Each function that returns a step processes a token in the mode of its name, and returns what follows. A
/// token that the mode has no rule for begins the next part of the page, where it is processed again. Most
/// end tags are ignored instead.
class HeadModes {
public:
    /// `state` and `templates` must outlive this object.
    HeadModes(Construction& state, Templates& templates) : state_(state), templates_(templates) {}

    /// Sets quirks mode by the document type, or if there is none. Ignores white space and comments.
    Step initial(const Token& token);
    /// Inserts the element html, whose tag may be absent.
    Step beforeHtml(const Token& token);
    /// Inserts the element head, whose tag may be absent.
    Step beforeHead(const Token& token);
    /// Inserts the elements of the head. May remove the white space that a text begins with from the token.
    Step inHead(Token& token);
    /// Inserts the element body, whose tag may be absent, or frameset. May remove the white space that a text
    /// begins with from the token. An element of the head is still inserted into the head.
    Step afterHead(Token& token);
    /// Inserts the text of the element that `startRaw` has opened. Its end tag, or the end of the page,
    /// closes the element and returns to the mode before.
    Step inText(const Token& token);

    /// Processes the start tag of an element with the trait kHeadContent, in any mode. Returns false, and
    /// does nothing, for any other. Requires: `token` is the start tag that the tokenizer returned last.
    bool start(const Token& token);
    /// Inserts an element whose content up to its end tag is text, and sets the mode Text. Requires: `token`
    /// is the start tag that the tokenizer returned last.
    void startRaw(const Token& token, Content content);

private:
    Construction& state_;
    Templates& templates_;
    /// The mode after the text; valid while the mode is Text.
    Mode modeBeforeText_ = Mode::Initial;
};

} // namespace tabulon::html
