// The start tags and the texts of the body, and the insertion of nodes into the tree.
#include "html/HtmlText.h"
#include "html/HtmlTreeBuilder.h"

#include <algorithm>

namespace tabulon::html {
namespace {

// The limit of nesting in browsers. Deeper elements become siblings.
constexpr std::size_t kDeepest = 512;

bool isHeading(const Node& node) {
    return node.space == Namespace::Html && has(node.tag, kHeading);
}

bool isTablePart(const Node& node) {
    return node.isHtml(Tag::Table) || node.isHtml(Tag::Tbody) || node.isHtml(Tag::Tfoot) ||
           node.isHtml(Tag::Thead) || node.isHtml(Tag::Tr);
}

} // namespace

Node& TreeBuilder::newElement(const Token& token, Namespace space) {
    Node& node = tree_.newNode();
    node.tag = token.tag;
    node.space = space;
    if (token.tag == Tag::Other)
        node.text = tree_.keep(token.name);
    if (space == Namespace::Html && (token.tag == Tag::A || token.tag == Tag::Area || token.tag == Tag::Base))
        node.link = linkOf(token);
    if (token.tag == Tag::AnnotationXml && space == Namespace::MathML)
        if (const std::string* encoding = token.attribute("encoding"))
            node.holdsHtml = ascii::equalsIgnoringCase(*encoding, "text/html") ||
                             ascii::equalsIgnoringCase(*encoding, "application/xhtml+xml");
    return node;
}

// Returns nullptr if the token has no address.
const LinkAttributes* TreeBuilder::linkOf(const Token& token) {
    const auto value = [&](std::string_view name) {
        const std::string* found = token.attribute(name);
        return found ? std::optional(*found) : std::nullopt;
    };
    const std::string* href = token.attribute("href");
    return href ? &tree_.keep({*href, value("add_date"), value("last_modified")}) : nullptr;
}

Node& TreeBuilder::cloneOf(const Node& node) {
    Node& clone = tree_.newNode();
    clone.tag = node.tag;
    clone.text = node.text;
    clone.link = node.link;
    return clone;
}

Node& TreeBuilder::insertElement(const Token& token, Namespace space) {
    Node& node = newElement(token, space);
    attach(node, open_.isEmpty() ? Place{&tree_.document(), nullptr} : placeFor(open_.top()));
    open_.push(node);
    return node;
}

Node& TreeBuilder::insertNamed(Tag tag) {
    Token token;
    token.tag = tag;
    return insertElement(token);
}

void TreeBuilder::insertVoid(const Token& token) {
    insertElement(token);
    open_.pop();
}

void TreeBuilder::insertText(std::string_view text) {
    if (text.empty())
        return;
    Node& node = tree_.newNode();
    node.kind = Node::Kind::Text;
    node.text = text;
    const Place place = placeFor(open_.top());
    insert(*place.parent, node, place.before);
}

// Returns the place of a new node in `target`. Where a table does not allow the node, this is before the
// table (the standard's foster parenting).
TreeBuilder::Place TreeBuilder::placeFor(Node& target) const {
    if (!fosters_ || !isTablePart(target))
        return {&target, nullptr};
    const std::size_t table = open_.lastIndexOf(Tag::Table);
    const std::size_t holder = open_.lastIndexOf(Tag::Template);
    if (holder != OpenElements::npos && (table == OpenElements::npos || holder > table))
        return {&open_[holder], nullptr};
    if (table == OpenElements::npos)
        return {&open_[0], nullptr};
    if (open_[table].parent)
        return {open_[table].parent, &open_[table]};
    return {&open_[table - 1], nullptr};
}

void TreeBuilder::attach(Node& node, Place place) {
    if (!place.before && open_.size() > kDeepest && place.parent->parent)
        place.parent = place.parent->parent;
    insert(*place.parent, node, place.before);
}

void TreeBuilder::closeImpliedEnds(Tag except) {
    while (open_.top().space == Namespace::Html && has(open_.top().tag, kImpliedEnd) &&
           open_.top().tag != except)
        open_.pop();
}

void TreeBuilder::closeParagraph() {
    if (open_.isInScope(Tag::P, Scope::Button))
        open_.popTo(open_.lastIndexOf(Tag::P));
}

// Closes the innermost element of the tag, and returns true, if it is in scope.
bool TreeBuilder::popIfOpen(Tag tag) {
    if (!open_.isInScope(tag))
        return false;
    open_.popTo(open_.lastIndexOf(tag));
    return true;
}

TreeBuilder::Step TreeBuilder::inBody(const Token& token) {
    switch (token.kind) {
    case Token::Kind::Doctype:
    case Token::Kind::Comment:
        return Step::Done;
    case Token::Kind::Text:
        return bodyText(token.text);
    case Token::Kind::StartTag:
        return bodyStart(token);
    case Token::Kind::EndTag:
        return bodyEnd(token);
    case Token::Kind::End:
        break;
    }
    return endOfPage(token);
}

TreeBuilder::Step TreeBuilder::bodyText(std::string_view text) {
    if (text.find('\0') != std::string_view::npos) {
        std::string kept(text);
        std::erase(kept, '\0');
        text = tree_.keep(std::move(kept));
    }
    if (text.empty())
        return Step::Done;
    reopenFormatting();
    insertText(text);
    if (!isBlank(text))
        allowsFrameset_ = false;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::bodyStart(const Token& token) {
    if (has(token.tag, kHeadContent))
        return inHeadStart(token);
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
        return Step::Done;
    case Tag::Body:
        allowsFrameset_ = false;
        return Step::Done;
    case Tag::Frameset:
        return startFrameset(token);
    case Tag::A:
        return startLink(token);
    case Tag::Nobr:
        return startNobr(token);
    case Tag::Li:
        return startListItem(token, {Tag::Li});
    case Tag::Dd:
    case Tag::Dt:
        return startListItem(token, {Tag::Dd, Tag::Dt});
    default:
        return bodyStartGrouped(token);
    }
}

TreeBuilder::Step TreeBuilder::bodyStartGrouped(const Token& token) {
    switch (token.tag) {
    case Tag::Pre:
    case Tag::Listing:
        closeParagraph();
        insertElement(token);
        skipsNewline_ = true;
        allowsFrameset_ = false;
        return Step::Done;
    case Tag::Plaintext:
        closeParagraph();
        insertElement(token);
        tokenizer_.setContent(Content::Plain);
        return Step::Done;
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
        closeParagraph();
        if (open_.isInScope(Tag::Select))
            closeImpliedEnds();
        insertVoid(token);
        allowsFrameset_ = false;
        return Step::Done;
    case Tag::P:
        closeParagraph();
        insertElement(token);
        return Step::Done;
    default:
        break;
    }
    if (has(token.tag, kHeading))
        return startHeading(token);
    if (has(token.tag, kBlockEnd)) {
        closeParagraph();
        insertElement(token);
        return Step::Done;
    }
    return has(token.tag, kFormatting) ? startFormatting(token) : bodyStartOther(token);
}

TreeBuilder::Step TreeBuilder::bodyStartOther(const Token& token) {
    switch (token.tag) {
    case Tag::Applet:
    case Tag::Marquee:
    case Tag::Object:
        reopenFormatting();
        insertElement(token);
        formatting_.addMarker();
        allowsFrameset_ = false;
        return Step::Done;
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
        insertVoid(token);
        return Step::Done;
    case Tag::Textarea:
        skipsNewline_ = true;
        allowsFrameset_ = false;
        return startRaw(token, Content::Rcdata);
    case Tag::Xmp:
        closeParagraph();
        reopenFormatting();
        allowsFrameset_ = false;
        return startRaw(token, Content::Rawtext);
    case Tag::Iframe:
        allowsFrameset_ = false;
        return startRaw(token, Content::Rawtext);
    case Tag::Noembed:
    case Tag::Noscript:
        return startRaw(token, Content::Rawtext);
    case Tag::Rb:
    case Tag::Rp:
    case Tag::Rt:
    case Tag::Rtc:
        if (open_.isInScope(Tag::Ruby))
            closeImpliedEnds(token.tag == Tag::Rp || token.tag == Tag::Rt ? Tag::Rtc : Tag::Other);
        insertElement(token);
        return Step::Done;
    case Tag::Math:
        return startForeign(token, Namespace::MathML);
    case Tag::Svg:
        return startForeign(token, Namespace::Svg);
    default:
        reopenFormatting();
        insertElement(token);
        return Step::Done;
    }
}

TreeBuilder::Step TreeBuilder::startFrameset(const Token& token) {
    if (!allowsFrameset_ || open_.size() < 2 || !open_[1].isHtml(Tag::Body))
        return Step::Done;
    detach(open_[1]);
    open_.popTo(1);
    insertElement(token);
    mode_ = Mode::InFrameset;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startHeading(const Token& token) {
    closeParagraph();
    if (isHeading(open_.top()))
        open_.pop();
    insertElement(token);
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startForm(const Token& token) {
    const bool isInTemplate = open_.contains(Tag::Template);
    if (form_ && !isInTemplate)
        return Step::Done;
    closeParagraph();
    Node& form = insertElement(token);
    if (!isInTemplate)
        form_ = &form;
    return Step::Done;
}

// Closes an open item, unless a special element other than address, div and p is open inside it.
TreeBuilder::Step TreeBuilder::startListItem(const Token& token, std::initializer_list<Tag> ends) {
    allowsFrameset_ = false;
    for (std::size_t index = open_.size(); index > 0; --index) {
        const Node& node = open_[index - 1];
        spend(1);
        if (node.space == Namespace::Html && std::ranges::find(ends, node.tag) != ends.end()) {
            open_.popTo(index - 1);
            break;
        }
        if (isSpecial(node) && !node.isHtml(Tag::Address) && !node.isHtml(Tag::Div) && !node.isHtml(Tag::P))
            break;
    }
    closeParagraph();
    insertElement(token);
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startButton(const Token& token) {
    popIfOpen(Tag::Button);
    reopenFormatting();
    insertElement(token);
    allowsFrameset_ = false;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startTable(const Token& token) {
    if (!isQuirky_)
        closeParagraph();
    insertElement(token);
    allowsFrameset_ = false;
    mode_ = Mode::InTable;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startInput(const Token& token) {
    popIfOpen(Tag::Select);
    reopenFormatting();
    insertVoid(token);
    const std::string* type = token.attribute("type");
    if (!type || !ascii::equalsIgnoringCase(*type, "hidden"))
        allowsFrameset_ = false;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startSelect(const Token& token) {
    if (popIfOpen(Tag::Select))
        return Step::Done;
    reopenFormatting();
    insertElement(token);
    allowsFrameset_ = false;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startOption(const Token& token) {
    if (open_.isInScope(Tag::Select))
        closeImpliedEnds(token.tag == Tag::Option ? Tag::Optgroup : Tag::Other);
    else if (open_.top().isHtml(Tag::Option))
        open_.pop();
    reopenFormatting();
    insertElement(token);
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startVoid(const Token& token) {
    reopenFormatting();
    insertVoid(token);
    allowsFrameset_ = false;
    return Step::Done;
}

TreeBuilder::Step TreeBuilder::startForeign(const Token& token, Namespace space) {
    reopenFormatting();
    insertElement(token, space);
    if (token.selfClosing)
        open_.pop();
    return Step::Done;
}

} // namespace tabulon::html
