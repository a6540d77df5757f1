// The private records by which pasteboard items name live nodes of this process, and the lists of nodes that
// all windows share. They are never written to a file.
#pragma once

#include "model/Bookmark.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Nodes are kept alive from `add` to the next `clear` of their list. A record of a list that was cleared
/// never names a node again.
class NodeRecords {
public:
    enum class List {
        Copied,
        Dragged,
        Received, ///< the last tree of another program, in no document
    };

    /// Generates the token.
    NodeRecords();

    /// Releases the nodes of the list and makes their records invalid.
    void clear(List list);
    /// Appends the node to the list and returns its record of 8 bytes.
    std::string add(List list, Ref<Bookmark> node);
    /// Returns the node that the record names, itself and not a copy, or `nullptr` for any other bytes.
    Ref<Bookmark> find(std::string_view record) const;
    /// Returns the nodes of a list in the order in which they were added.
    const std::vector<Ref<Bookmark>>& nodes(List list) const { return at(list).nodes; }

    /// Returns 32 random hexadecimal digits, by which the process recognizes its own records among those of
    /// other processes.
    const std::string& token() const { return token_; }

private:
    struct Entries {
        std::uint32_t generation;
        std::vector<Ref<Bookmark>> nodes;
    };

    const Entries& at(List list) const { return lists_[static_cast<std::size_t>(list)]; }
    Entries& at(List list) { return lists_[static_cast<std::size_t>(list)]; }

    std::uint32_t generations_ = 3; // so far, over all lists
    std::array<Entries, 3> lists_{Entries{0, {}}, Entries{1, {}}, Entries{2, {}}};
    std::string token_;
};

} // namespace tabulon
