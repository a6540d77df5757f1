// Counts the steps of an export and reports them to a Progress.
#pragma once

#include "base/Progress.h"
#include "model/Bookmark.h"

#include <cstddef>

namespace tabulon {

/// Whether an export sorts the nodes of each list.
enum class ExportOrder { AsInTheTree, Sorted };

/// The steps of one export.
class ExportSteps {
public:
    /// Prepares an export of the nodes below `master`. `progress` may be `nullptr` and is not owned. With a
    /// `progress` all nodes are counted first, in linear time; without one, each step is an addition.
    ExportSteps(Progress* progress, const Bookmark& master, ExportOrder order);

    /// Counts one node that has been written.
    void nodeWritten() { take(1); }
    /// Counts one node whose sort key has been made, which takes about three times as long as writing it.
    void keyMade() { take(3); }
    /// Counts `count` keys that have been sorted, approximately.
    void keysSorted(std::size_t count) { take(count); }
    /// Reports the progress, unchanged, where time has passed without a step.
    void report() { cancelled_ = cancelled_ || !progress_.report(taken_); }

    /// Returns true after the user has cancelled. The export then has to end.
    bool isCancelled() const { return cancelled_; }

private:
    void take(std::size_t steps) {
        taken_ += steps;
        cancelled_ = cancelled_ || !progress_.goOn(taken_);
    }

    ProgressSteps progress_;
    std::size_t taken_ = 0;
    bool cancelled_ = false;
};

} // namespace tabulon
