#include "html/HtmlEndModes.h"

#include "html/HtmlText.h"

namespace tabulon::html {

Step EndModes::afterBody(const Token& token) {
    if (token.kind == Token::Kind::End)
        return templates_.endOfPage();
    if (token.kind == Token::Kind::Text && isBlank(token.text))
        return body_.process(token);
    if (token.isStart(Tag::Html))
        return Step::Done;
    if (state_.mode == Mode::AfterBody && token.isEnd(Tag::Html)) {
        state_.mode = Mode::AfterAfterBody;
        return Step::Done;
    }
    state_.mode = Mode::InBody;
    return Step::Again;
}

Step EndModes::inFrameset(const Token& token) {
    if (token.kind == Token::Kind::End)
        return templates_.endOfPage();
    if (token.isStart(Tag::Frameset)) {
        state_.insertElement(token);
    } else if (token.isStart(Tag::Noframes)) {
        head_.start(token);
    } else if (token.isEnd(Tag::Frameset) && state_.open.top().tag != Tag::Html) {
        state_.open.pop();
        if (state_.open.top().tag != Tag::Frameset)
            state_.mode = Mode::AfterFrameset;
    }
    return Step::Done;
}

Step EndModes::afterFrameset(const Token& token) {
    if (token.kind == Token::Kind::End)
        return templates_.endOfPage();
    if (token.isStart(Tag::Noframes))
        head_.start(token);
    return Step::Done;
}

} // namespace tabulon::html
