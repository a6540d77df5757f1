#include "formats/export/SiblingOrder.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tabulon {

void sortNodes(std::span<const Bookmark*> nodes, const Collation& collation, SortText text) {
    std::vector<std::pair<std::string, const Bookmark*>> keyed;
    keyed.reserve(nodes.size());
    for (const Bookmark* node : nodes) {
        const Text& sorted = text == SortText::Name ? node->itemName() : node->itemURL();
        keyed.emplace_back(collation.sortKey(sorted.view()), node);
    }
    std::ranges::stable_sort(keyed, {}, &std::pair<std::string, const Bookmark*>::first);
    std::ranges::transform(keyed, nodes.begin(), &std::pair<std::string, const Bookmark*>::second);
}

} // namespace tabulon
