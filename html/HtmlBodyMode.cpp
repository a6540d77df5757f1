#include "html/HtmlBodyMode.h"

#include "html/HtmlText.h"

namespace tabulon::html {

Step BodyMode::process(const Token& token) {
    if (token.kind == Token::Kind::End)
        return templates_.endOfPage();
    if (token.kind == Token::Kind::EndTag)
        return endTags_.process(token);
    if (token.kind == Token::Kind::StartTag)
        startTags_.process(token);
    else if (token.kind == Token::Kind::Text)
        insertText(token.text);
    return Step::Done;
}

void BodyMode::insertText(std::string_view text) {
    const std::string_view kept = state_.withoutNuls(text);
    if (kept.empty())
        return;
    formatting_.reopen();
    state_.insertText(kept);
    if (!isBlank(kept))
        state_.allowsFrameset = false;
}

} // namespace tabulon::html
