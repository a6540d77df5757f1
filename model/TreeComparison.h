// Differences between two states of one tree: what was added, removed, moved, renamed and edited. How the
// differences are shown or taken back is decided by the callers.
#pragma once

#include "model/Bookmark.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace tabulon {

class LongTexts;

/// A set of changed fields, as bits.
enum ChangedField : std::uint8_t {
    kChangedURL = 1,
    kChangedNote = 2,
    kChangedTags = 4,
    kChangedLabel = 8,
    kChangedOther = 16, ///< type, flags, browser, auto-tab
};

/// How one node differs. A node that was renamed, edited and moved is one difference with three marks.
struct TreeDifference {
    /// Null for a node that was added.
    Bookmark* before = nullptr;
    /// Null for a node that was removed.
    Bookmark* after = nullptr;
    bool moved = false;
    bool renamed = false;
    std::uint8_t edited = 0; ///< ChangedField bits

    bool isAdded() const { return before == nullptr; }
    bool isRemoved() const { return after == nullptr; }
};

struct DifferenceCounts {
    std::size_t added = 0;
    std::size_t removed = 0;
    /// Nodes that are in both trees and were moved, renamed or edited.
    std::size_t changed = 0;

    friend bool operator==(const DifferenceCounts&, const DifferenceCounts&) = default;
};

/// The differences between two trees. Nodes have no identifiers, so pairs are found by content: nodes of
/// equal content first, then links of equal address and folders of equal name, then, within one folder, links
/// of equal name and items of the same kind and added-date. At each step pairs within paired folders are
/// preferred, and equal candidates are paired in document order. Dates, the open state of folders and the
/// status of links are no differences. Roots are paired and not compared.
///
/// Takes time in proportion to the number of nodes (times its logarithm for nodes that changed their order).
class TreeComparison {
public:
    /// Both trees must live, unchanged, as long as the comparison is used.
    TreeComparison(const Bookmark& before, const Bookmark& after);

    /// Removed nodes first, in the order of the tree before; then all others in the order of the tree after.
    const std::vector<TreeDifference>& differences() const { return differences_; }
    const DifferenceCounts& counts() const { return counts_; }

    /// The node of the other tree that `node` is paired with, or null.
    Bookmark* partnerOf(const Bookmark& node) const;

private:
    void collectDifferences(const Bookmark& before, const Bookmark& after, LongTexts& texts);

    std::unordered_map<const Bookmark*, Bookmark*> partners_;
    std::vector<TreeDifference> differences_;
    DifferenceCounts counts_;
};

} // namespace tabulon
