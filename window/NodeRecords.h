// The private records by which pasteboard items name live nodes of this process, and the list of copied nodes
// that all windows share. Nothing here is ever written to a file.
#pragma once

#include "model/Bookmark.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// Nodes are kept alive from `add` to the next `clear` of their list; a record of a list that was cleared
/// names nothing for ever.
class NodeRecords {
public:
    enum class List {
        Copied,
        Dragged,
        Received, ///< what was last read of another program, in no document's tree
    };

    NodeRecords();

    void clear(List list);
    /// The record of the node: 8 bytes.
    std::string add(List list, Ref<Bookmark> node);
    /// The node that a record names, that very one; null for everything else.
    Ref<Bookmark> find(std::string_view record) const;
    /// The nodes of a list in their order.
    const std::vector<Ref<Bookmark>>& nodes(List list) const { return at(list).nodes; }

    /// Tells the records of this process from those of others: bytes that nobody can guess.
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
