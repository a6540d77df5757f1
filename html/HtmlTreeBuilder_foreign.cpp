// The rules for SVG and MathML in a page ("foreign content").
#include "html/HtmlText.h"
#include "html/HtmlTreeBuilder.h"

namespace tabulon::html {

TreeBuilder::Step TreeBuilder::inForeign(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Text:
        return foreignText(token.text);
    case Token::Kind::StartTag:
        return foreignStart(token);
    case Token::Kind::EndTag:
        return foreignEnd(token);
    default:
        return Step::Done;
    }
}

TreeBuilder::Step TreeBuilder::foreignText(std::string_view text) {
    if (!isBlank(text))
        allowsFrameset_ = false;
    std::string replaced;
    for (std::size_t nul = text.find('\0'); nul != std::string_view::npos; nul = text.find('\0')) {
        replaced.append(text.substr(0, nul)).append("\uFFFD");
        text.remove_prefix(nul + 1);
    }
    insertText(replaced.empty() ? text : tree_.keep(std::move(replaced.append(text))));
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::foreignStart(const Token& token) {
    const bool isLayoutFont = token.tag == Tag::Font && (token.attribute("color") ||
                                                         token.attribute("face") || token.attribute("size"));
    if (has(token.tag, kLeavesForeign) || isLayoutFont) {
        leaveForeign();
        return inMode(mode_, token);
    }
    insertElement(token, open_.top().space);
    if (token.selfClosing)
        open_.pop();
    return Step::Done;
}

void TreeBuilder::leaveForeign() {
    while (open_.top().space != Namespace::Html && !isMathTextIntegrationPoint(open_.top()) &&
           !isHtmlIntegrationPoint(open_.top()))
        open_.pop();
}

TreeBuilder::Step TreeBuilder::foreignEnd(const Token& token) {
    if (token.tag == Tag::Br || token.tag == Tag::P) {
        leaveForeign();
        return inMode(mode_, token);
    }
    for (std::size_t index = open_.size(); index > 1; --index) {
        const Node& node = open_[index - 1];
        spend(1);
        if (node.space == Namespace::Html)
            return inMode(mode_, token);
        if (node.name() == token.name) {
            open_.popTo(index - 1);
            return Step::Done;
        }
    }
    return Step::Done;
}

} // namespace tabulon::html
