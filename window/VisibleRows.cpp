#include "window/VisibleRows.h"

#include "model/TreeWalk.h"

namespace tabulon {

std::vector<Bookmark*> shownBelow(const Bookmark& node) {
    std::vector<Bookmark*> shown;
    walkBelow(node, [&](Bookmark& each) {
        shown.push_back(&each);
        return isExpanded(each);
    });
    return shown;
}

std::size_t shownCountBelow(const Bookmark& node) {
    std::size_t count = 0;
    walkBelow(node, [&](Bookmark& each) {
        ++count;
        return isExpanded(each);
    });
    return count;
}

void VisibleRows::show(Ref<Bookmark> root) {
    rows_.clear();
    root_ = std::move(root);
    rows_.insertRange(0, shownBelow(*root_));
}

std::optional<std::size_t> VisibleRows::rowOf(const Bookmark& node) const {
    const std::size_t row = rows_.indexOf(node);
    return row == rows_.npos ? std::nullopt : std::optional(row);
}

} // namespace tabulon
