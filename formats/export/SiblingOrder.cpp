#include "formats/export/SiblingOrder.h"

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tabulon {
namespace {

using KeyedNode = std::pair<std::string_view, const Bookmark*>;

// Makes sort keys. Nodes may share one long text, whose key is made once.
class Keys {
public:
    explicit Keys(const Collation& collation) : collation_(collation) {}

    /// Returns the sort key of `text`. It is valid as long as this object.
    std::string_view keyFor(const Text& text) {
        if (!text.isShared() || text.view().size() < kLong)
            return made(text);
        std::string_view& key = shared_[text.view().data()];
        return key.data() ? key : key = made(text);
    }

private:
    static constexpr std::size_t kLong = 256;

    std::string_view made(const Text& text) { return keys_.emplace_back(collation_.sortKey(text.view())); }

    const Collation& collation_;
    std::deque<std::string> keys_;
    std::unordered_map<const char*, std::string_view> shared_; // by the address of the text's bytes
};

// The number of keys that are sorted in about a hundredth of a second.
constexpr std::size_t kBlock = 32768;

// Sorts stably and checks for cancellation between the blocks and between the merges of ever longer runs.
void sortByKey(std::vector<KeyedNode>& keyed, ExportSteps& steps) {
    const auto place = [&](std::size_t index) {
        return keyed.begin() + static_cast<std::ptrdiff_t>(std::min(index, keyed.size()));
    };
    const auto less = [](const KeyedNode& a, const KeyedNode& b) { return a.first < b.first; };
    for (std::size_t first = 0; first < keyed.size(); first += kBlock) {
        std::stable_sort(place(first), place(first + kBlock), less);
        steps.keysSorted(std::min(kBlock, keyed.size() - first));
        if (steps.isCancelled())
            return;
    }
    for (std::size_t run = kBlock; run < keyed.size(); run *= 2)
        for (std::size_t first = 0; first + run < keyed.size(); first += 2 * run) {
            std::inplace_merge(place(first), place(first + run), place(first + 2 * run), less);
            steps.report();
            if (steps.isCancelled())
                return;
        }
}

} // namespace

void sortNodes(std::span<const Bookmark*> nodes, const Collation& collation, ExportSteps& steps,
               SortText text) {
    Keys keys(collation);
    std::vector<KeyedNode> keyed;
    keyed.reserve(nodes.size());
    for (const Bookmark* node : nodes) {
        const Text& sorted = text == SortText::Name ? node->itemName() : node->itemURL();
        keyed.emplace_back(keys.keyFor(sorted), node);
        steps.keyMade();
        if (steps.isCancelled())
            return;
    }
    sortByKey(keyed, steps);
    if (!steps.isCancelled())
        std::ranges::transform(keyed, nodes.begin(), &KeyedNode::second);
}

} // namespace tabulon
