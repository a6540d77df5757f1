#include "html/HtmlConstruction.h"

#include "html/HtmlText.h"

#include <algorithm>

namespace tabulon::html {
namespace {

constexpr std::size_t kFreeSteps = std::size_t{1} << 28;
constexpr std::size_t kStepsPerByte = 64;
// The limit of nesting in browsers. Deeper elements become siblings.
constexpr std::size_t kDeepest = 512;

bool isTablePart(const Node& node) {
    return node.isHtml(Tag::Table) || node.isHtml(Tag::Tbody) || node.isHtml(Tag::Tfoot) ||
           node.isHtml(Tag::Thead) || node.isHtml(Tag::Tr);
}

} // namespace

Construction::Construction(std::string_view source, Tree& treeToBuild)
    : tree(treeToBuild), tokenizer(source, treeToBuild.texts()),
      stepsLeft_(kFreeSteps + kStepsPerByte * source.size()) {}

void Construction::spend(std::size_t steps) {
    stepsLeft_ -= std::min(steps, stepsLeft_);
    if (stepsLeft_ == 0)
        stop();
}

Node& Construction::newElement(const Token& token, Namespace space) {
    Node& node = tree.newNode();
    node.tag = token.tag;
    node.space = space;
    if (token.tag == Tag::Other)
        node.text = tree.keep(token.name);
    if (space == Namespace::Html && (token.tag == Tag::A || token.tag == Tag::Area || token.tag == Tag::Base))
        node.link = linkOf(token);
    if (token.tag == Tag::AnnotationXml && space == Namespace::MathML)
        if (const std::string* encoding = token.attribute("encoding"))
            node.holdsHtml = ascii::equalsIgnoringCase(*encoding, "text/html") ||
                             ascii::equalsIgnoringCase(*encoding, "application/xhtml+xml");
    return node;
}

// Returns nullptr if the token has no address.
const LinkAttributes* Construction::linkOf(const Token& token) {
    const auto value = [&](std::string_view name) {
        const std::string* found = token.attribute(name);
        return found ? std::optional(*found) : std::nullopt;
    };
    const std::string* href = token.attribute("href");
    return href ? &tree.keep({*href, value("add_date"), value("last_modified")}) : nullptr;
}

Node& Construction::cloneOf(const Node& node) {
    Node& clone = tree.newNode();
    clone.tag = node.tag;
    clone.text = node.text;
    clone.link = node.link;
    return clone;
}

Node& Construction::insertElement(const Token& token, Namespace space) {
    Node& node = newElement(token, space);
    attach(node, open.isEmpty() ? Place{&tree.document(), nullptr} : placeFor(open.top()));
    open.push(node);
    return node;
}

Node& Construction::insertNamed(Tag tag) {
    Token token;
    token.tag = tag;
    return insertElement(token);
}

void Construction::insertVoid(const Token& token) {
    insertElement(token);
    open.pop();
}

void Construction::insertText(std::string_view text) {
    if (text.empty())
        return;
    Node& node = tree.newNode();
    node.kind = Node::Kind::Text;
    node.text = text;
    const Place place = placeFor(open.top());
    insert(*place.parent, node, place.before);
}

bool Construction::insertBlanks(Token& text) {
    const std::string_view blanks = leadingBlanks(text.text);
    insertText(blanks);
    text.text.remove_prefix(blanks.size());
    return text.text.empty();
}

std::string_view Construction::withoutNuls(std::string_view text) {
    if (text.find('\0') == std::string_view::npos)
        return text;
    std::string kept(text);
    std::erase(kept, '\0');
    return tree.keep(std::move(kept));
}

// The standard calls this foster parenting.
Place Construction::placeFor(Node& target) const {
    if (!fosters || !isTablePart(target))
        return {&target, nullptr};
    const std::size_t table = open.lastIndexOf(Tag::Table);
    const std::size_t holder = open.lastIndexOf(Tag::Template);
    if (holder != OpenElements::npos && (table == OpenElements::npos || holder > table))
        return {&open[holder], nullptr};
    if (table == OpenElements::npos)
        return {&open[0], nullptr};
    if (open[table].parent)
        return {open[table].parent, &open[table]};
    return {&open[table - 1], nullptr};
}

void Construction::attach(Node& node, Place place) {
    if (!place.before && open.size() > kDeepest && place.parent->parent)
        place.parent = place.parent->parent;
    insert(*place.parent, node, place.before);
}

void Construction::closeImpliedEnds(Tag except) {
    while (open.top().space == Namespace::Html && has(open.top().tag, kImpliedEnd) &&
           open.top().tag != except)
        open.pop();
}

void Construction::closeParagraph() {
    closeInScope(Tag::P, Scope::Button);
}

bool Construction::closeInScope(Tag tag, Scope scope) {
    if (!open.isInScope(tag, scope))
        return false;
    open.popTo(open.lastIndexOf(tag));
    return true;
}

void Construction::closeNamed(const Token& token) {
    for (std::size_t index = open.size(); index > 0; --index) {
        const Node& node = open[index - 1];
        spend(1);
        if (node.space == Namespace::Html && node.tag == token.tag &&
            (token.tag != Tag::Other || node.text == token.name)) {
            open.popTo(index - 1);
            break;
        }
        if (isSpecial(node))
            break;
    }
}

} // namespace tabulon::html
