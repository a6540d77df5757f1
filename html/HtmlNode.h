// The tree of a page as far as its links need it: elements and texts, without comments and without the
// attributes that tell nothing of links.
#pragma once

#include "html/HtmlTag.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon::html {

enum class Namespace : std::uint8_t { Html, Svg, MathML };

/// What a link, an area or a base with an address carries; absent where it has no such attribute.
struct LinkAttributes {
    std::string href;
    std::optional<std::string> addDate;
    std::optional<std::string> lastModified;
};

struct Node {
    enum class Kind : std::uint8_t { Document, Element, Text };

    Kind kind = Kind::Element;
    Tag tag = Tag::Other;
    Namespace space = Namespace::Html;
    /// MathML's annotation that holds HTML.
    bool holdsHtml = false;
    /// Whether the tree builder still has it open.
    bool isOpen = false;
    Node* parent = nullptr;
    Node* previous = nullptr;
    Node* next = nullptr;
    Node* first = nullptr;
    Node* last = nullptr;
    /// A text's characters, or the name of an element whose tag is Other.
    std::string_view text;
    /// Null where there is no address.
    const LinkAttributes* link = nullptr;

    bool isHtml(Tag wanted) const { return tag == wanted && space == Namespace::Html; }
    std::string_view name() const { return tag == Tag::Other ? text : nameOf(tag); }
};

/// Owns the nodes of one page and everything that they refer to, but for the page's source.
class Tree {
public:
    Tree() { document_->kind = Node::Kind::Document; }

    Node& document() { return *document_; }
    const Node& document() const { return *document_; }
    /// Valid as long as the tree; so is everything below.
    Node& newNode() { return nodes_.emplace_back(); }
    std::string_view keep(std::string text) { return texts_.emplace_back(std::move(text)); }
    std::deque<std::string>& texts() { return texts_; }
    const LinkAttributes& keep(LinkAttributes link) { return links_.emplace_back(std::move(link)); }

private:
    std::deque<Node> nodes_;
    std::deque<std::string> texts_;
    std::deque<LinkAttributes> links_;
    Node* document_ = &nodes_.emplace_back();
};

/// Puts a node that has no parent into `parent`, in front of `before` or, where that is null, at the end.
void insert(Node& parent, Node& child, Node* before = nullptr);
/// Takes a node out of its parent, if it has one.
void detach(Node& child);
/// Moves all children to the end of another node; gives how many there were.
std::size_t moveChildren(Node& from, Node& to);

} // namespace tabulon::html
