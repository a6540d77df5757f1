// The standard's list of active formatting elements (a, b, font …): those that a page has opened and not
// ended. The tree builder opens them again after another end tag has closed them.
#pragma once

#include "html/HtmlNode.h"
#include "html/HtmlTokenizer.h"

#include <utility>
#include <vector>

namespace tabulon::html {

/// A list of nodes that it does not own, and of markers. Searches are linear; `takeSteps` returns their cost,
/// which the tree builder limits.
class FormattingElements {
public:
    /// The index that a search returns if it finds no element.
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    struct Entry {
        /// nullptr for a marker, the beginning of a cell, caption, object or template. Formatting does not
        /// continue across it.
        Node* node = nullptr;
        /// The `hashOf` of the element's attributes, which is equal for equal attributes.
        std::size_t attributes = 0;
    };

    /// Returns the number of entries, with the markers.
    std::size_t size() const { return entries_.size(); }
    /// Returns the entry at `index`; the oldest is 0. Valid until the list changes. Requires: index < size().
    Entry& operator[](std::size_t index) { return entries_[index]; }

    /// Adds a marker at the end.
    void addMarker() { entries_.emplace_back(); }
    /// Removes the entries after the last marker, and the marker. Without a marker, removes all entries.
    void clearToMarker();
    /// Adds `node`, whose attributes have the hash `attributes`, at the end. If there are already three
    /// entries of its tag and hash after the last marker, removes the first of these.
    void add(Node& node, std::size_t attributes);
    /// Removes the entry at `index`. Requires: index < size().
    void removeAt(std::size_t index);
    /// Inserts `entry` before the one at `index`. Requires: index <= size().
    void insertAt(std::size_t index, Entry entry);
    /// Returns the index of the last element of `tag` after the last marker, or npos.
    std::size_t lastOf(Tag tag) const;
    /// Returns the index of `node`, or npos. Markers do not end the search.
    std::size_t indexOf(const Node& node) const;

    /// Returns the number of entries that `add`, `lastOf` and `indexOf` have visited since the last call.
    std::size_t takeSteps() { return std::exchange(steps_, 0); }

private:
    std::vector<Entry> entries_;
    mutable std::size_t steps_ = 0;
};

/// Returns a hash of names and values that does not depend on the order of the attributes. Different
/// attributes may have the same hash. The values are those of this run of the program, and are not to be
/// stored. Linear in the attributes.
std::size_t hashOf(const std::vector<Attribute>& attributes);

} // namespace tabulon::html
