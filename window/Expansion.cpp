#include "window/Expansion.h"

#include "model/TreeWalk.h"

namespace tabulon {
namespace {

bool expands(ExpansionChange change) {
    return change == ExpansionChange::Expand || change == ExpansionChange::ExpandPlus;
}

bool includesChildren(ExpansionChange change) {
    return change == ExpansionChange::ExpandPlus || change == ExpansionChange::CollapsePlus;
}

std::size_t setShowHier(Bookmark& item, bool expanded) {
    if (!item.isFolder() || item.showHier() == expanded)
        return 0;
    item.setShowHier(expanded);
    return 1;
}

} // namespace

std::size_t applyExpansion(Bookmark& item, ExpansionChange change) {
    std::size_t changes = setShowHier(item, expands(change));
    if (includesChildren(change) && item.isFolder())
        changes += applyExpansionBelow(item, change);
    return changes;
}

std::size_t applyExpansionBelow(Bookmark& top, ExpansionChange change) {
    std::size_t changes = 0;
    walkBelow(top, [&](Bookmark& item) {
        changes += setShowHier(item, expands(change));
        return item.isFolder();
    });
    return changes;
}

} // namespace tabulon
