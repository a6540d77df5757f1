// The end tags of the body.
#include "html/HtmlTreeBuilder.h"

#include <algorithm>
#include <utility>

namespace tabulon::html {

TreeBuilder::Step TreeBuilder::bodyEnd(const Token& token) {
    switch (token.tag) {
    case Tag::Template:
        return endTemplate();
    case Tag::Body:
    case Tag::Html:
        if (!open_.isInScope(Tag::Body))
            return Step::Done;
        mode_ = Mode::AfterBody;
        return token.tag == Tag::Html ? Step::Again : Step::Done;
    case Tag::Form:
        return endForm();
    case Tag::P:
        if (!open_.isInScope(Tag::P, Scope::Button))
            insertNamed(Tag::P);
        closeParagraph();
        return Step::Done;
    case Tag::Li:
        return endBlock(Tag::Li, Scope::ListItem);
    case Tag::Dd:
    case Tag::Dt:
        return endBlock(token.tag, Scope::Normal);
    default:
        return bodyEndOther(token);
    }
}

TreeBuilder::Step TreeBuilder::bodyEndOther(const Token& token) {
    switch (token.tag) {
    case Tag::Applet:
    case Tag::Marquee:
    case Tag::Object:
        return endObject(token.tag);
    case Tag::Br: {
        Token start;
        start.kind = Token::Kind::StartTag;
        start.tag = Tag::Br;
        return startVoid(start);
    }
    default:
        break;
    }
    if (has(token.tag, kHeading))
        return endHeading();
    if (has(token.tag, kBlockEnd))
        return endBlock(token.tag, Scope::Normal);
    return has(token.tag, kFormatting) ? endFormatting(token) : endAny(token);
}

TreeBuilder::Step TreeBuilder::endBlock(Tag tag, Scope scope) {
    if (open_.isInScope(tag, scope))
        open_.popTo(open_.lastIndexOf(tag));
    return Step::Done;
}

// Closes the form, but not the elements that are open in it.
TreeBuilder::Step TreeBuilder::endForm() {
    if (open_.contains(Tag::Template))
        return endBlock(Tag::Form, Scope::Normal);
    const Node* form = std::exchange(form_, nullptr);
    if (!form || !form->isOpen)
        return Step::Done;
    const std::size_t index = open_.indexOf(*form);
    spend(kStepsPerMove * (open_.size() - index));
    if (!open_.isInScope(index))
        return Step::Done;
    closeImpliedEnds();
    if (form->isOpen)
        open_.removeAt(open_.indexOf(*form));
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::endHeading() {
    std::size_t innermost = OpenElements::npos;
    for (const Tag tag : {Tag::H1, Tag::H2, Tag::H3, Tag::H4, Tag::H5, Tag::H6})
        if (open_.isInScope(tag) && (innermost == OpenElements::npos || open_.lastIndexOf(tag) > innermost))
            innermost = open_.lastIndexOf(tag);
    if (innermost != OpenElements::npos)
        open_.popTo(innermost);
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::endObject(Tag tag) {
    if (popIfOpen(tag))
        formatting_.clearToMarker();
    return Step::Done;
}

// Closes the innermost element of the name, unless a special element is inside it.
TreeBuilder::Step TreeBuilder::endAny(const Token& token) {
    for (std::size_t index = open_.size(); index > 0; --index) {
        const Node& node = open_[index - 1];
        spend(1);
        if (node.space == Namespace::Html && node.tag == token.tag &&
            (token.tag != Tag::Other || node.text == token.name)) {
            open_.popTo(index - 1);
            break;
        }
        if (isSpecial(node))
            break;
    }
    return Step::Done;
}

} // namespace tabulon::html
