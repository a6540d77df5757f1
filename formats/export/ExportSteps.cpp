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

// Not every node has to be written, nor sorted only once.
std::size_t stepsOf(const Bookmark& master, ExportOrder order) {
    constexpr std::size_t kStepsOfSorting = 4; // the key and its place in the order
    return nodesBelow(master) * (order == ExportOrder::Sorted ? 1 + kStepsOfSorting : 1);
}

constexpr std::size_t kStride = 4096; // steps; a few milliseconds

} // namespace

ExportSteps::ExportSteps(Progress* progress, const Bookmark& master, ExportOrder order)
    : progress_(progress, progress ? stepsOf(master, order) : 0, kStride) {}

} // namespace tabulon
