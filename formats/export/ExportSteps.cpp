#include "formats/export/ExportSteps.h"

#include "model/TreeWalk.h"

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

// An upper limit: some nodes are not written, and not every list is sorted.
std::size_t stepsOf(const Bookmark& master, ExportOrder order) {
    constexpr std::size_t kStepsOfSorting = 4; // three for the key, one for sorting it
    return nodesBelow(master) * (order == ExportOrder::Sorted ? 1 + kStepsOfSorting : 1);
}

constexpr std::size_t kStride = 4096; // steps; they take a few milliseconds

} // namespace

ExportSteps::ExportSteps(Progress* progress, const Bookmark& master, ExportOrder order)
    : progress_(progress, progress ? stepsOf(master, order) : 0, kStride) {}

} // namespace tabulon
