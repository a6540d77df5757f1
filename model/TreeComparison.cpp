#include "model/TreeComparison.h"

#include "model/TreePairing.h"
#include "model/TreeWalk.h"

#include <algorithm>
#include <unordered_set>

namespace tabulon {
namespace {

std::uint8_t editedFields(const Bookmark& a, const Bookmark& b, LongTexts& texts) {
    std::uint8_t fields = 0;
    if (!texts.areEqual(a.itemURL(), b.itemURL()))
        fields |= kChangedURL;
    if (!texts.areEqual(a.itemNote(), b.itemNote()))
        fields |= kChangedNote;
    if (!texts.areEqual(a.itemTags(), b.itemTags()))
        fields |= kChangedTags;
    if (a.getLabel() != b.getLabel())
        fields |= kChangedLabel;
    if (a.getType() != b.getType() || a.getFlags() != b.getFlags() || a.itemBrowser() != b.itemBrowser() ||
        a.getAutoTab() != b.getAutoTab())
        fields |= kChangedOther;
    return fields;
}

// Returns which elements are in the longest ascending subsequence of `places`. These nodes keep their order,
// all others were moved.
std::vector<bool> inLongestAscent(const std::vector<std::size_t>& places) {
    std::vector<std::size_t> tails; // tails[n]: the end of the best ascent of length n + 1
    std::vector<std::size_t> previous(places.size());
    for (std::size_t index = 0; index < places.size(); ++index) {
        const auto at = std::ranges::lower_bound(tails, places[index], {},
                                                 [&](std::size_t tail) { return places[tail]; });
        previous[index] = at == tails.begin() ? places.size() : *(at - 1);
        if (at == tails.end())
            tails.push_back(index);
        else
            *at = index;
    }
    std::vector<bool> members(places.size());
    for (std::size_t index = tails.empty() ? places.size() : tails.back(); index < places.size();
         index = previous[index])
        members[index] = true;
    return members;
}

// Adds to `moved` the children of `after` that are in the same folder as before, but not in the same order.
void collectReordered(const Bookmark& before, const Bookmark& after, const TreeComparison& comparison,
                      std::unordered_set<const Bookmark*>& moved) {
    if (!before.getChildren() || !after.getChildren())
        return;
    std::unordered_map<const Bookmark*, std::size_t> placeBefore;
    for (const Bookmark* child : *before.getChildren())
        placeBefore.emplace(child, placeBefore.size());
    std::vector<const Bookmark*> stayed;
    std::vector<std::size_t> places;
    for (const Bookmark* child : *after.getChildren()) {
        const auto place = placeBefore.find(comparison.partnerOf(*child));
        if (place == placeBefore.end())
            continue;
        stayed.push_back(child);
        places.push_back(place->second);
    }
    const std::vector<bool> kept = inLongestAscent(places);
    for (std::size_t index = 0; index < stayed.size(); ++index)
        if (!kept[index])
            moved.insert(stayed[index]);
}

} // namespace

TreeComparison::TreeComparison(const Bookmark& before, const Bookmark& after) {
    LongTexts texts;
    partners_ = pairsOf(before, after, texts);
    collectDifferences(before, after, texts);
}

Bookmark* TreeComparison::partnerOf(const Bookmark& node) const {
    const auto found = partners_.find(&node);
    return found == partners_.end() ? nullptr : found->second;
}

void TreeComparison::collectDifferences(const Bookmark& before, const Bookmark& after, LongTexts& texts) {
    walkBelow(before, [&](Bookmark& node) {
        if (!partnerOf(node))
            differences_.push_back({&node, nullptr});
        return true;
    });
    counts_.removed = differences_.size();
    std::unordered_set<const Bookmark*> reordered;
    collectReordered(before, after, *this, reordered);
    walkBelow(after, [&](Bookmark& node) {
        Bookmark* old = partnerOf(node);
        if (!old) {
            differences_.push_back({nullptr, &node});
            ++counts_.added;
            return true;
        }
        collectReordered(*old, node, *this, reordered);
        const bool sameFolder = partnerOf(*old->getParent()) == node.getParent();
        const TreeDifference difference{.before = old,
                                        .after = &node,
                                        .moved = !sameFolder || reordered.contains(&node),
                                        .renamed = !texts.areEqual(old->itemName(), node.itemName()),
                                        .edited = editedFields(*old, node, texts)};
        if (difference.moved || difference.renamed || difference.edited != 0) {
            differences_.push_back(difference);
            ++counts_.changed;
        }
        return true;
    });
}

} // namespace tabulon
