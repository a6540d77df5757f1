// Differences between two states of one tree: nodes that were added, removed, moved, renamed and edited.
// Callers show the differences; TreePutBack.h reverts them.
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

/// The difference of one node. A node that was renamed, edited and moved is one difference.
struct TreeDifference {
    /// The node in the tree before, or nullptr for a node that was added. Not owned.
    Bookmark* before = nullptr;
    /// The node in the tree after, or nullptr for a node that was removed. Not owned.
    Bookmark* after = nullptr;
    /// True if the folder differs, or the order among the items that stayed in the folder. Of these as few as
    /// possible count as moved.
    bool moved = false;
    /// True if the names differ. Null and empty are different names.
    bool renamed = false;
    std::uint8_t edited = 0; ///< ChangedField bits

    // For a node that was added or removed the other fields are false and 0.

    bool isAdded() const { return before == nullptr; }
    bool isRemoved() const { return after == nullptr; }
};

/// The numbers of differences below the roots. Folders, links and separators count alike.
struct DifferenceCounts {
    std::size_t added = 0;
    std::size_t removed = 0;
    /// Nodes that are in both trees and were moved, renamed or edited.
    std::size_t changed = 0;

    friend bool operator==(const DifferenceCounts&, const DifferenceCounts&) = default;
};

/// The differences between two trees. Nodes have no identifiers, so pairs are found by content: first nodes
/// of equal content (name, URL, note and tags), then links of equal URL and folders of equal name, then,
/// within one folder, items of equal name, and items of the same kind and added-date. In each step pairs
/// within paired folders are preferred, and equal candidates are paired in document order. Dates, the open
/// state of folders and the status of links are not compared. Roots are paired and not compared.
///
/// Takes linear time in the number of nodes and the bytes of their texts; for n children of one folder whose
/// order changed, O(n log n).
class TreeComparison {
public:
    /// Compares two trees, which must exist, unchanged, as long as the comparison is used.
    TreeComparison(const Bookmark& before, const Bookmark& after);

    /// Returns the removed nodes, in the order of the tree before, and then all others, in the order of the
    /// tree after.
    const std::vector<TreeDifference>& differences() const { return differences_; }
    /// Returns the numbers of differences.
    const DifferenceCounts& counts() const { return counts_; }

    /// Returns the node of the other tree with which `node` is paired, or nullptr, also for a node of neither
    /// tree. `node` may be of either tree, also a root. Not owned.
    Bookmark* partnerOf(const Bookmark& node) const;

private:
    void collectDifferences(const Bookmark& before, const Bookmark& after, LongTexts& texts);

    std::unordered_map<const Bookmark*, Bookmark*> partners_; // both directions of every pair
    std::vector<TreeDifference> differences_;
    DifferenceCounts counts_;
};

} // namespace tabulon
