// How far an export is: counts what is done of it and tells a Progress now and then.
#pragma once

#include "base/Progress.h"
#include "model/Bookmark.h"

#include <cstddef>

namespace tabulon {

enum class ExportOrder { AsInTheTree, Sorted };

/// The steps of one export.
class ExportSteps {
public:
    /// For an export of what is below `master`. Without a `progress`, which is not owned, counting costs next
    /// to nothing.
    ExportSteps(Progress* progress, const Bookmark& master, ExportOrder order);

    /// One more node is written.
    void nodeWritten() { take(1); }
    /// One more node has its key for sorting, which takes about three times as long as writing it.
    void keyMade() { take(3); }
    /// So many keys more are in order, roughly.
    void keysSorted(std::size_t count) { take(count); }
    /// Nothing was finished, but time has passed.
    void tell() { cancelled_ = cancelled_ || !progress_.tell(taken_); }

    /// The user has cancelled: the export is to end.
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
