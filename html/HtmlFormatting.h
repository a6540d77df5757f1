// The list of formatting elements (a, b, font …) that a page has opened and not ended: they are opened again
// where another end tag closed them.
#pragma once

#include "html/HtmlNode.h"
#include "html/HtmlTokenizer.h"

#include <utility>
#include <vector>

namespace tabulon::html {

class FormattingElements {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    struct Entry {
        /// Null for a marker: the border of a cell or an object, which nothing reaches across.
        Node* node = nullptr;
        /// Equal for elements of equal attributes.
        std::size_t attributes = 0;
    };

    bool isEmpty() const { return entries_.empty(); }
    std::size_t size() const { return entries_.size(); }
    Entry& operator[](std::size_t index) { return entries_[index]; }

    void addMarker() { entries_.emplace_back(); }
    void clearToMarker();
    /// Of four elements of the same tag and attributes without a marker between them the earliest goes.
    void add(Node& node, std::size_t attributes);
    void removeAt(std::size_t index);
    void insertAt(std::size_t index, Entry entry);
    /// The last one of the tag behind the last marker, or npos.
    std::size_t lastOf(Tag tag) const;
    /// The place of an element, or npos.
    std::size_t indexOf(const Node& node) const;

    /// How many entries were looked at since this was asked last.
    std::size_t takeSteps() { return std::exchange(steps_, 0); }

private:
    std::vector<Entry> entries_;
    mutable std::size_t steps_ = 0;
};

/// A number that does not depend on their order.
std::size_t hashOf(const std::vector<Attribute>& attributes);

} // namespace tabulon::html
