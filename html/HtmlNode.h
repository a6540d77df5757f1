// The tree of a page, as far as the import of links needs it: elements and texts, without comments, and
// without the attributes that do not belong to links.
#pragma once

#include "html/HtmlTag.h"

#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon::html {

/// The namespace of an element.
enum class Namespace : std::uint8_t { Html, Svg, MathML };

/// The attributes of a link, an area or a base with an address, with their references decoded; UTF-8. An
/// absent attribute is `nullopt`.
struct LinkAttributes {
    std::string href;
    std::optional<std::string> addDate;
    std::optional<std::string> lastModified;
};

/// A node of the tree. The links between nodes do not own; a Tree owns all nodes.
struct Node {
    enum class Kind : std::uint8_t { Document, Element, Text };

    Kind kind = Kind::Element;
    /// Of elements: Other for a name without rules, which `text` contains.
    Tag tag = Tag::Other;
    /// Of elements.
    Namespace space = Namespace::Html;
    /// True for an "annotation-xml" of MathML whose content is HTML by its encoding.
    bool holdsHtml = false;
    /// True while the element is on the tree builder's stack of open elements.
    bool isOpen = false;
    /// These are nullptr where there is no such node: `parent` for the document and for a removed node,
    /// `first` and `last` for a node without children.
    Node* parent = nullptr;
    Node* previous = nullptr;
    Node* next = nullptr;
    Node* first = nullptr;
    Node* last = nullptr;
    /// The characters of a text, or the name of an element whose tag is Other; UTF-8. Valid as long as the
    /// tree and the page's source.
    std::string_view text;
    /// nullptr if the element is no a, area or base, or has no address. Owned by the tree.
    const LinkAttributes* link = nullptr;

    /// Returns true for the HTML element of this tag.
    bool isHtml(Tag wanted) const { return tag == wanted && space == Namespace::Html; }
    /// Returns the name of an element in lower case. Requires: the node is an element. Valid as long as
    /// `text`.
    std::string_view name() const { return tag == Tag::Other ? text : nameOf(tag); }
};

/// Owns the nodes of one page and everything that they refer to, except the page's source. Addresses of nodes
/// do not change. A node that is removed from its parent stays in memory as long as the tree.
class Tree {
public:
    Tree() { document_->kind = Node::Kind::Document; }

    /// Returns the root, which has no parent. Valid as long as the tree.
    Node& document() { return *document_; }
    const Node& document() const { return *document_; }
    // What these return is valid as long as the tree.
    /// Returns a new node without a parent.
    Node& newNode() { return nodes_.emplace_back(); }
    /// Stores `text` and returns it.
    std::string_view keep(std::string text) { return texts_.emplace_back(std::move(text)); }
    /// Returns the stored texts, so that a tokenizer can add some. None of them may be changed or removed.
    std::deque<std::string>& texts() { return texts_; }
    /// Stores `link` and returns it.
    const LinkAttributes& keep(LinkAttributes link) { return links_.emplace_back(std::move(link)); }

private:
    std::deque<Node> nodes_;
    std::deque<std::string> texts_;
    std::deque<LinkAttributes> links_;
    /// The first of `nodes_`.
    Node* document_ = &nodes_.emplace_back();
};

/// Inserts `child` into `parent`, before `before` or, if that is nullptr, at the end. Constant time.
/// Requires: `child` has no parent and does not contain `parent`, and `before` is a child of `parent`.
void insert(Node& parent, Node& child, Node* before = nullptr);
/// Removes `child` with everything in it from its parent. Does nothing if it has none. Constant time.
void detach(Node& child);
/// Moves all children of `from` to the end of `to`, in order, and returns their number. Linear in that
/// number. Requires: `to` is not in `from`.
std::size_t moveChildren(Node& from, Node& to);

} // namespace tabulon::html
