#include "html/HtmlBodyStartTags.h"

#include "base/Ascii.h"

#include <algorithm>

namespace tabulon::html {
namespace {

bool isHeading(const Node& node) {
    return node.space == Namespace::Html && has(node.tag, kHeading);
}

} // namespace

void BodyStartTags::process(const Token& token) {
    if (head_.start(token))
        return;
    switch (token.tag) {
    case Tag::Html:
    case Tag::Head:
    case Tag::Caption:
    case Tag::Col:
    case Tag::Colgroup:
    case Tag::Frame:
    case Tag::Tbody:
    case Tag::Td:
    case Tag::Tfoot:
    case Tag::Th:
    case Tag::Thead:
    case Tag::Tr:
        return;
    case Tag::Body:
        state_.allowsFrameset = false;
        return;
    case Tag::Frameset:
        return startFrameset(token);
    case Tag::A:
        return formatting_.startLink(token);
    case Tag::Nobr:
        return formatting_.startNobr(token);
    case Tag::Li:
        return startListItem(token, {Tag::Li});
    case Tag::Dd:
    case Tag::Dt:
        return startListItem(token, {Tag::Dd, Tag::Dt});
    default:
        return startGrouped(token);
    }
}

void BodyStartTags::startGrouped(const Token& token) {
    switch (token.tag) {
    case Tag::Pre:
    case Tag::Listing:
        state_.closeParagraph();
        state_.insertElement(token);
        state_.skipsNewline = true;
        state_.allowsFrameset = false;
        return;
    case Tag::Plaintext:
        state_.closeParagraph();
        state_.insertElement(token);
        state_.tokenizer.setContent(Content::Plain);
        return;
    case Tag::Form:
        return startForm(token);
    case Tag::Button:
        return startButton(token);
    case Tag::Select:
        return startSelect(token);
    case Tag::Table:
        return startTable(token);
    case Tag::Input:
        return startInput(token);
    case Tag::Optgroup:
    case Tag::Option:
        return startOption(token);
    case Tag::Hr:
        state_.closeParagraph();
        if (state_.open.isInScope(Tag::Select))
            state_.closeImpliedEnds();
        state_.insertVoid(token);
        state_.allowsFrameset = false;
        return;
    case Tag::P:
        state_.closeParagraph();
        state_.insertElement(token);
        return;
    default:
        break;
    }
    if (has(token.tag, kHeading))
        return startHeading(token);
    if (has(token.tag, kBlockEnd)) {
        state_.closeParagraph();
        state_.insertElement(token);
        return;
    }
    return has(token.tag, kFormatting) ? formatting_.start(token) : startOther(token);
}

void BodyStartTags::startOther(const Token& token) {
    switch (token.tag) {
    case Tag::Applet:
    case Tag::Marquee:
    case Tag::Object:
        formatting_.reopen();
        state_.insertElement(token);
        state_.formatting.addMarker();
        state_.allowsFrameset = false;
        return;
    case Tag::Area:
    case Tag::Br:
    case Tag::Embed:
    case Tag::Image:
    case Tag::Img:
    case Tag::Keygen:
    case Tag::Wbr:
        return startVoid(token);
    case Tag::Param:
    case Tag::Source:
    case Tag::Track:
        state_.insertVoid(token);
        return;
    case Tag::Textarea:
        state_.skipsNewline = true;
        state_.allowsFrameset = false;
        return head_.startRaw(token, Content::Rcdata);
    case Tag::Xmp:
        state_.closeParagraph();
        formatting_.reopen();
        state_.allowsFrameset = false;
        return head_.startRaw(token, Content::Rawtext);
    case Tag::Iframe:
        state_.allowsFrameset = false;
        return head_.startRaw(token, Content::Rawtext);
    case Tag::Noembed:
    case Tag::Noscript:
        return head_.startRaw(token, Content::Rawtext);
    case Tag::Rb:
    case Tag::Rp:
    case Tag::Rt:
    case Tag::Rtc:
        if (state_.open.isInScope(Tag::Ruby))
            state_.closeImpliedEnds(token.tag == Tag::Rp || token.tag == Tag::Rt ? Tag::Rtc : Tag::Other);
        state_.insertElement(token);
        return;
    case Tag::Math:
        return startForeign(token, Namespace::MathML);
    case Tag::Svg:
        return startForeign(token, Namespace::Svg);
    default:
        formatting_.reopen();
        state_.insertElement(token);
        return;
    }
}

void BodyStartTags::startFrameset(const Token& token) {
    if (!state_.allowsFrameset || state_.open.size() < 2 || !state_.open[1].isHtml(Tag::Body))
        return;
    detach(state_.open[1]);
    state_.open.popTo(1);
    state_.insertElement(token);
    state_.mode = Mode::InFrameset;
}

void BodyStartTags::startHeading(const Token& token) {
    state_.closeParagraph();
    if (isHeading(state_.open.top()))
        state_.open.pop();
    state_.insertElement(token);
}

void BodyStartTags::startForm(const Token& token) {
    const bool isInTemplate = state_.open.contains(Tag::Template);
    if (state_.form && !isInTemplate)
        return;
    state_.closeParagraph();
    Node& form = state_.insertElement(token);
    if (!isInTemplate)
        state_.form = &form;
}

// Closes an open item, unless a special element other than address, div and p is open inside it.
void BodyStartTags::startListItem(const Token& token, std::initializer_list<Tag> ends) {
    state_.allowsFrameset = false;
    for (std::size_t index = state_.open.size(); index > 0; --index) {
        const Node& node = state_.open[index - 1];
        state_.spend(1);
        if (node.space == Namespace::Html && std::ranges::find(ends, node.tag) != ends.end()) {
            state_.open.popTo(index - 1);
            break;
        }
        if (isSpecial(node) && !node.isHtml(Tag::Address) && !node.isHtml(Tag::Div) && !node.isHtml(Tag::P))
            break;
    }
    state_.closeParagraph();
    state_.insertElement(token);
}

void BodyStartTags::startButton(const Token& token) {
    state_.closeInScope(Tag::Button);
    formatting_.reopen();
    state_.insertElement(token);
    state_.allowsFrameset = false;
}

void BodyStartTags::startTable(const Token& token) {
    if (!state_.isQuirky)
        state_.closeParagraph();
    state_.insertElement(token);
    state_.allowsFrameset = false;
    state_.mode = Mode::InTable;
}

void BodyStartTags::startInput(const Token& token) {
    state_.closeInScope(Tag::Select);
    formatting_.reopen();
    state_.insertVoid(token);
    const std::string* type = token.attribute("type");
    if (!type || !ascii::equalsIgnoringCase(*type, "hidden"))
        state_.allowsFrameset = false;
}

void BodyStartTags::startSelect(const Token& token) {
    if (state_.closeInScope(Tag::Select))
        return;
    formatting_.reopen();
    state_.insertElement(token);
    state_.allowsFrameset = false;
}

void BodyStartTags::startOption(const Token& token) {
    if (state_.open.isInScope(Tag::Select))
        state_.closeImpliedEnds(token.tag == Tag::Option ? Tag::Optgroup : Tag::Other);
    else if (state_.open.top().isHtml(Tag::Option))
        state_.open.pop();
    formatting_.reopen();
    state_.insertElement(token);
}

void BodyStartTags::startVoid(const Token& token) {
    formatting_.reopen();
    state_.insertVoid(token);
    state_.allowsFrameset = false;
}

void BodyStartTags::startForeign(const Token& token, Namespace space) {
    formatting_.reopen();
    state_.insertElement(token, space);
    if (token.selfClosing)
        state_.open.pop();
}

} // namespace tabulon::html
