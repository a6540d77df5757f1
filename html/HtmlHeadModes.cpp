#include "html/HtmlHeadModes.h"

#include "html/HtmlQuirks.h"
#include "html/HtmlText.h"

#include <algorithm>

namespace tabulon::html {
namespace {

bool isBlankText(const Token& token) {
    return token.kind == Token::Kind::Text && isBlank(token.text);
}

// Returns true for the end tags that do not end the head: all except those of `tags`.
bool isIgnoredEnd(const Token& token, std::initializer_list<Tag> tags) {
    return token.kind == Token::Kind::EndTag && std::ranges::find(tags, token.tag) == tags.end();
}

} // namespace

Step HeadModes::initial(const Token& token) {
    if (token.kind == Token::Kind::Comment || isBlankText(token))
        return Step::Done;
    const bool isDoctype = token.kind == Token::Kind::Doctype;
    state_.mode = Mode::BeforeHtml;
    state_.isQuirky = !isDoctype || html::isQuirky(token);
    return isDoctype ? Step::Done : Step::Again;
}

Step HeadModes::beforeHtml(const Token& token) {
    if (isBlankText(token) || isIgnoredEnd(token, {Tag::Head, Tag::Body, Tag::Html, Tag::Br}))
        return Step::Done;
    state_.insertNamed(Tag::Html);
    state_.mode = Mode::BeforeHead;
    return token.isStart(Tag::Html) ? Step::Done : Step::Again;
}

Step HeadModes::beforeHead(const Token& token) {
    if (isBlankText(token) || isIgnoredEnd(token, {Tag::Head, Tag::Body, Tag::Html, Tag::Br}) ||
        token.isStart(Tag::Html))
        return Step::Done;
    state_.head = &state_.insertNamed(Tag::Head);
    state_.mode = Mode::InHead;
    return token.isStart(Tag::Head) ? Step::Done : Step::Again;
}

Step HeadModes::inHead(Token& token) {
    if (token.kind == Token::Kind::Text && state_.insertBlanks(token))
        return Step::Done;
    if (token.kind == Token::Kind::StartTag) {
        if (token.tag == Tag::Html || token.tag == Tag::Head || start(token))
            return Step::Done;
        if (token.tag == Tag::Noscript) {
            startRaw(token, Content::Rawtext);
            return Step::Done;
        }
    }
    if (token.isEnd(Tag::Template)) {
        templates_.end();
        return Step::Done;
    }
    if (isIgnoredEnd(token, {Tag::Head, Tag::Body, Tag::Html, Tag::Br}))
        return Step::Done;
    state_.open.pop();
    state_.mode = Mode::AfterHead;
    return token.isEnd(Tag::Head) ? Step::Done : Step::Again;
}

bool HeadModes::start(const Token& token) {
    switch (token.tag) {
    case Tag::Base:
    case Tag::Basefont:
    case Tag::Bgsound:
    case Tag::Link:
    case Tag::Meta:
        state_.insertVoid(token);
        return true;
    case Tag::Title:
        startRaw(token, Content::Rcdata);
        return true;
    case Tag::Noframes:
    case Tag::Style:
        startRaw(token, Content::Rawtext);
        return true;
    case Tag::Script:
        startRaw(token, Content::Script);
        return true;
    case Tag::Template:
        templates_.start(token);
        return true;
    default:
        return false;
    }
}

Step HeadModes::afterHead(Token& token) {
    if (token.kind == Token::Kind::Text && state_.insertBlanks(token))
        return Step::Done;
    if (token.kind == Token::Kind::StartTag) {
        if (token.tag == Tag::Html || token.tag == Tag::Head)
            return Step::Done;
        if (token.tag == Tag::Body || token.tag == Tag::Frameset) {
            state_.insertElement(token);
            state_.allowsFrameset &= token.tag != Tag::Body;
            state_.mode = token.tag == Tag::Body ? Mode::InBody : Mode::InFrameset;
            return Step::Done;
        }
        if (has(token.tag, kHeadContent)) {
            state_.open.push(*state_.head);
            start(token);
            state_.open.removeAt(state_.open.indexOf(*state_.head));
            return Step::Done;
        }
    }
    if (token.isEnd(Tag::Template)) {
        templates_.end();
        return Step::Done;
    }
    if (isIgnoredEnd(token, {Tag::Body, Tag::Html, Tag::Br}))
        return Step::Done;
    state_.insertNamed(Tag::Body);
    state_.mode = Mode::InBody;
    return Step::Again;
}

Step HeadModes::inText(const Token& token) {
    if (token.kind == Token::Kind::Text) {
        state_.insertText(token.text);
        return Step::Done;
    }
    state_.open.pop();
    state_.mode = modeBeforeText_;
    return token.kind == Token::Kind::End ? Step::Again : Step::Done;
}

void HeadModes::startRaw(const Token& token, Content content) {
    state_.insertElement(token);
    state_.tokenizer.setContent(content);
    modeBeforeText_ = state_.mode;
    state_.mode = Mode::Text;
}

} // namespace tabulon::html
