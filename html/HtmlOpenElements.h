// The standard's stack of open elements, with its scopes. Whether an element of a tag is in scope is found in
// constant time, however deep elements are nested.
#pragma once

#include "html/HtmlNode.h"

#include <array>
#include <vector>

namespace tabulon::html {

/// The scopes of the standard: each names the elements at which a search for an open element ends.
enum class Scope { Normal, ListItem, Button, Table };

/// A stack of nodes that it does not own; index 0 is the outermost. Maintains `Node::isOpen`. Constant time
/// unless a function says otherwise.
class OpenElements {
public:
    /// The index that a search returns if it finds no element.
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    OpenElements() { last_.fill(npos); }

    bool isEmpty() const { return entries_.empty(); }
    std::size_t size() const { return entries_.size(); }
    /// Returns the element at `index`. Requires: index < size().
    Node& operator[](std::size_t index) const { return *entries_[index].node; }
    /// Returns the innermost element. Requires: not empty.
    Node& top() const { return *entries_.back().node; }

    /// Opens `node` inside the innermost element. Requires: it is not open.
    void push(Node& node);
    /// Closes the innermost element. Requires: not empty.
    void pop();
    /// Closes the element at `index` and all inside it. Linear in their number. Does nothing if there are not
    /// more than `index` elements.
    void popTo(std::size_t index);
    /// Closes only the element at `index`. Linear in the number of elements inside it. Requires: index <
    /// size().
    void removeAt(std::size_t index);
    /// Opens `node` outside of the element at `index`. Linear in the number of elements from there on.
    /// Requires: index <= size(), and `node` is not open.
    void insertAt(std::size_t index, Node& node);
    /// Returns the index of `node`. Linear in the number of elements inside it. Requires: it is open.
    std::size_t indexOf(const Node& node) const;

    /// Returns the index of the innermost HTML element of `tag`, or npos.
    std::size_t lastIndexOf(Tag tag) const { return last_[static_cast<std::size_t>(tag)]; }
    /// Returns true if an HTML element of `tag` is open.
    bool contains(Tag tag) const { return lastIndexOf(tag) != npos; }
    /// Returns true if an HTML element of `tag` is open and no element inside it ends the scope.
    bool isInScope(Tag tag, Scope scope = Scope::Normal) const;
    /// Returns true if no element inside that at `index` ends the normal scope. Requires: index < size().
    bool isInScope(std::size_t index) const;

private:
    struct Entry {
        Node* node;
        /// The index of the next outer HTML element of the same tag, or npos.
        std::size_t previousOfTag;
        /// For each scope the index of the innermost element up to this one that ends it, or npos.
        std::array<std::size_t, 4> bounds;
    };

    /// The outermost element first.
    std::vector<Entry> entries_;
    /// By tag, the index of its innermost HTML element, or npos.
    std::array<std::size_t, kTagCount> last_;
};

/// Returns true for the elements that the standard calls special: they end the search for an open element of
/// another name.
bool isSpecial(const Node& node);
/// Returns true for an element of MathML in which text and most start tags are parsed as HTML.
bool isMathTextIntegrationPoint(const Node& node);
/// Returns true for an element of SVG or MathML whose content is HTML.
bool isHtmlIntegrationPoint(const Node& node);

} // namespace tabulon::html
