// Progress reporting and cancellation for long operations. The panel with its bar and button is in
// platform/ProgressPanels.h.
#pragma once

#include <algorithm>
#include <cstddef>

namespace tabulon {

/// Receives the progress of an operation. Operations take it as a pointer that may be nullptr, which means no
/// reporting and no cancellation.
class Progress {
public:
    virtual ~Progress() = default;

    /// Reports that `fraction` of the operation is done. Returns false once the user has cancelled, and in
    /// all later calls. The operation must then stop as soon as possible, fail with `cancelledByUser()` and
    /// leave no partial result. An implementation reads the clock and usually does nothing else, so the
    /// operation should call this at least 100 times a second. Requires: 0 <= fraction <= 1, and at least the
    /// value of the call before.
    [[nodiscard]] virtual bool goOn(double fraction) = 0;
};

/// Reports the progress of an operation of known size, but only once per `stride`, so that it can be called
/// for every small step.
class ProgressSteps {
public:
    /// A stride for operations that count bytes of a file: so many are read in a fraction of a millisecond.
    static constexpr std::size_t kBytes = std::size_t{64} << 10;

    /// `progress` may be nullptr and must outlive this object. `total` is the size of the operation in any
    /// unit; `stride` is the amount, in the same unit, that takes a fraction of a millisecond.
    ProgressSteps(Progress* progress, std::size_t total, std::size_t stride = kBytes)
        : progress_(progress), total_(std::max<std::size_t>(total, 1)), stride_(stride) {}

    /// Reports that `done` of `total` is done, in the unit of `total`, if a stride has passed since the last
    /// report; otherwise returns true. Returns false if the user has cancelled, as `Progress::goOn` does.
    [[nodiscard]] bool goOn(std::size_t done) { return !progress_ || done < next_ || report(done); }
    /// Reports in any case, for a step that has taken long. The next report of `goOn` is a stride after this
    /// one. Returns as `goOn` does.
    [[nodiscard]] bool report(std::size_t done) {
        next_ = done + stride_;
        return !progress_ ||
               progress_->goOn(std::min(1.0, static_cast<double>(done) / static_cast<double>(total_)));
    }

private:
    Progress* progress_; ///< not owned; may be nullptr
    std::size_t total_;  ///< at least 1
    std::size_t stride_;
    /// The amount from which on `goOn` reports again.
    std::size_t next_ = 0;
};

/// The progress of one part of an operation: its 0 to 1 is reported as `begin` to `end` of the whole.
class PartialProgress : public Progress {
public:
    /// `whole` may be nullptr and must outlive this object. Requires: 0 <= begin <= end <= 1.
    PartialProgress(Progress* whole, double begin, double end) : whole_(whole), begin_(begin), end_(end) {}

    /// Returns true without a report if `whole` is nullptr.
    [[nodiscard]] bool goOn(double fraction) override {
        return !whole_ || whole_->goOn(begin_ + fraction * (end_ - begin_));
    }

private:
    Progress* whole_; ///< not owned; may be nullptr
    double begin_;    ///< fractions of the whole
    double end_;
};

} // namespace tabulon
