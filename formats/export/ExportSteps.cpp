#include "formats/export/ExportSteps.h"

#include "model/TreeWalk.h"

#include <algorithm>

namespace tabulon {
namespace {

std::size_t nodesBelow(const Bookmark& master) {
    std::size_t count = 0;
    walkBelow(master, [&count](const Bookmark&) {
        ++count;
        return true;
    });
    return count;
}

} // namespace

ExportSteps::ExportSteps(Progress* progress, const Bookmark& master, ExportOrder order)
    : progress_(progress) {
    constexpr std::size_t kStepsOfSorting = 4; // the key and its place in the order
    if (progress_)
        total_ = nodesBelow(master) * (order == ExportOrder::Sorted ? 1 + kStepsOfSorting : 1);
}

// Not every node has to be written, nor sorted only once.
double ExportSteps::fraction() const {
    return total_ == 0 ? 0 : std::min(1.0, static_cast<double>(taken_) / static_cast<double>(total_));
}

} // namespace tabulon
