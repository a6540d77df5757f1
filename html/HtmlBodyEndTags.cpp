#include "html/HtmlBodyEndTags.h"

#include <utility>

namespace tabulon::html {

Step BodyEndTags::process(const Token& token) {
    switch (token.tag) {
    case Tag::Template:
        templates_.end();
        return Step::Done;
    case Tag::Body:
    case Tag::Html:
        if (!state_.open.isInScope(Tag::Body))
            return Step::Done;
        state_.mode = Mode::AfterBody;
        return token.tag == Tag::Html ? Step::Again : Step::Done;
    default:
        endOther(token);
        return Step::Done;
    }
}

void BodyEndTags::endOther(const Token& token) {
    switch (token.tag) {
    case Tag::Form:
        return endForm();
    case Tag::P:
        if (!state_.open.isInScope(Tag::P, Scope::Button))
            state_.insertNamed(Tag::P);
        return state_.closeParagraph();
    case Tag::Li:
        state_.closeInScope(Tag::Li, Scope::ListItem);
        return;
    case Tag::Dd:
    case Tag::Dt:
        state_.closeInScope(token.tag);
        return;
    case Tag::Applet:
    case Tag::Marquee:
    case Tag::Object:
        if (state_.closeInScope(token.tag))
            state_.formatting.clearToMarker();
        return;
    case Tag::Br: // as the start tag, without its attributes
        formatting_.reopen();
        state_.insertNamed(Tag::Br);
        state_.open.pop();
        state_.allowsFrameset = false;
        return;
    default:
        break;
    }
    if (has(token.tag, kHeading))
        endHeading();
    else if (has(token.tag, kBlockEnd))
        state_.closeInScope(token.tag);
    else if (has(token.tag, kFormatting))
        formatting_.end(token);
    else
        state_.closeNamed(token);
}

// Closes the form, but not the elements that are open in it.
void BodyEndTags::endForm() {
    if (state_.open.contains(Tag::Template)) {
        state_.closeInScope(Tag::Form);
        return;
    }
    const Node* form = std::exchange(state_.form, nullptr);
    if (!form || !form->isOpen)
        return;
    const std::size_t index = state_.open.indexOf(*form);
    state_.spend(Construction::kStepsPerMove * (state_.open.size() - index));
    if (!state_.open.isInScope(index))
        return;
    state_.closeImpliedEnds();
    if (form->isOpen)
        state_.open.removeAt(state_.open.indexOf(*form));
}

void BodyEndTags::endHeading() {
    std::size_t innermost = OpenElements::npos;
    for (const Tag tag : {Tag::H1, Tag::H2, Tag::H3, Tag::H4, Tag::H5, Tag::H6})
        if (state_.open.isInScope(tag) &&
            (innermost == OpenElements::npos || state_.open.lastIndexOf(tag) > innermost))
            innermost = state_.open.lastIndexOf(tag);
    if (innermost != OpenElements::npos)
        state_.open.popTo(innermost);
}

} // namespace tabulon::html
