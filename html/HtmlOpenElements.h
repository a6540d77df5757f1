// The elements of a page that are open at a place, and which of them can be seen from there. A question never
// walks over the elements, however deep they nest.
#pragma once

#include "html/HtmlNode.h"

#include <array>
#include <vector>

namespace tabulon::html {

/// How far a search for an open element sees.
enum class Scope { Normal, ListItem, Button, Table };

class OpenElements {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    OpenElements() { last_.fill(npos); }

    bool isEmpty() const { return entries_.empty(); }
    std::size_t size() const { return entries_.size(); }
    Node& operator[](std::size_t index) const { return *entries_[index].node; }
    /// The innermost one. Requires one.
    Node& top() const { return *entries_.back().node; }

    void push(Node& node);
    void pop();
    /// Closes everything down to and including the element at `index`.
    void popTo(std::size_t index);
    /// These cost the number of elements above the index.
    void removeAt(std::size_t index);
    void insertAt(std::size_t index, Node& node);
    /// The index of an element that is open; costs the number of elements above it.
    std::size_t indexOf(const Node& node) const;

    /// The innermost HTML element of a tag, or npos.
    std::size_t lastIndexOf(Tag tag) const { return last_[static_cast<std::size_t>(tag)]; }
    bool contains(Tag tag) const { return lastIndexOf(tag) != npos; }
    /// Whether an HTML element of the tag is seen.
    bool isInScope(Tag tag, Scope scope = Scope::Normal) const;
    /// Whether the element at the index is seen.
    bool isInScope(std::size_t index) const;

private:
    struct Entry {
        Node* node;
        /// The next HTML element of the same tag further out.
        std::size_t previousOfTag;
        /// For each scope the innermost element, this one included, that nothing is seen beyond.
        std::array<std::size_t, 4> bounds;
    };

    std::vector<Entry> entries_;
    std::array<std::size_t, kTagCount> last_;
};

/// Whether an element ends the search for an open element of another name.
bool isSpecial(const Node& node);
/// Whether the text in an element of MathML is HTML.
bool isMathTextIntegrationPoint(const Node& node);
/// Whether the content of an element of SVG or MathML is HTML.
bool isHtmlIntegrationPoint(const Node& node);

} // namespace tabulon::html
