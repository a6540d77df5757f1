#include "html/HtmlForeignContent.h"

#include "html/HtmlText.h"

namespace tabulon::html {

bool ForeignContent::takes(const Token& token) const {
    if (state_.open.isEmpty() || state_.open.top().space == Namespace::Html || token.kind == Token::Kind::End)
        return false;
    const Node& node = state_.open.top();
    const bool isStart = token.kind == Token::Kind::StartTag;
    const bool isText = token.kind == Token::Kind::Text;
    if (isMathTextIntegrationPoint(node) &&
        (isText || (isStart && token.tag != Tag::Mglyph && token.tag != Tag::Malignmark)))
        return false;
    if (node.space == Namespace::MathML && node.tag == Tag::AnnotationXml && isStart && token.tag == Tag::Svg)
        return false;
    return !(isHtmlIntegrationPoint(node) && (isStart || isText));
}

Step ForeignContent::process(const Token& token) {
    if (token.kind == Token::Kind::Text)
        insertText(token.text);
    if (token.kind == Token::Kind::StartTag)
        return start(token);
    return token.kind == Token::Kind::EndTag ? end(token) : Step::Done;
}

void ForeignContent::insertText(std::string_view text) {
    if (!isBlank(text))
        state_.allowsFrameset = false;
    std::string replaced;
    for (std::size_t nul = text.find('\0'); nul != std::string_view::npos; nul = text.find('\0')) {
        replaced.append(text.substr(0, nul)).append("\uFFFD");
        text.remove_prefix(nul + 1);
    }
    state_.insertText(replaced.empty() ? text : state_.tree.keep(std::move(replaced.append(text))));
}

Step ForeignContent::start(const Token& token) {
    const bool isLayoutFont = token.tag == Tag::Font && (token.attribute("color") ||
                                                         token.attribute("face") || token.attribute("size"));
    if (has(token.tag, kLeavesForeign) || isLayoutFont) {
        leave();
        return Step::AsHtml;
    }
    state_.insertElement(token, state_.open.top().space);
    if (token.selfClosing)
        state_.open.pop();
    return Step::Done;
}

void ForeignContent::leave() {
    while (state_.open.top().space != Namespace::Html && !isMathTextIntegrationPoint(state_.open.top()) &&
           !isHtmlIntegrationPoint(state_.open.top()))
        state_.open.pop();
}

Step ForeignContent::end(const Token& token) {
    if (token.tag == Tag::Br || token.tag == Tag::P) {
        leave();
        return Step::AsHtml;
    }
    for (std::size_t index = state_.open.size(); index > 1; --index) {
        const Node& node = state_.open[index - 1];
        state_.spend(1);
        if (node.space == Namespace::Html)
            return Step::AsHtml;
        if (node.name() == token.name) {
            state_.open.popTo(index - 1);
            return Step::Done;
        }
    }
    return Step::Done;
}

} // namespace tabulon::html
