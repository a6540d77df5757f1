// Work that may take long, as whoever does it sees the one who waits: it tells how far it is and hears
// whether it is still wanted. The bar with its button is ProgressPanels.h's affair.
#pragma once

#include <algorithm>
#include <cstddef>

namespace tabulon {

/// Handed to work as a pointer that is null when nobody watches.
class Progress {
public:
    virtual ~Progress() = default;

    /// So much of the work is done, from 0 to 1; never less than the time before. False once the user has
    /// cancelled, and from then on: the work ends as soon as it can, with the error of `cancelledByUser()`,
    /// and leaves nothing behind. To be called every hundredth of a second or oftener; a call costs no more
    /// than a look at the clock.
    [[nodiscard]] virtual bool goOn(double fraction) = 0;
};

/// Tells a Progress how far work of a known size is, seldom enough to cost next to nothing.
class ProgressSteps {
public:
    /// So many bytes of a file are gone over in a fraction of a millisecond.
    static constexpr std::size_t kBytes = std::size_t{64} << 10;

    /// `progress` may be null and must live longer; `total` is the size of the work in any unit, `stride` how
    /// much of it takes a fraction of a millisecond.
    ProgressSteps(Progress* progress, std::size_t total, std::size_t stride = kBytes)
        : progress_(progress), total_(std::max<std::size_t>(total, 1)), stride_(stride) {}

    /// So much is done. False once the user has cancelled; then the work is to end.
    [[nodiscard]] bool goOn(std::size_t done) { return !progress_ || done < next_ || tell(done); }
    /// The same at once: time has passed since.
    [[nodiscard]] bool tell(std::size_t done) {
        next_ = done + stride_;
        return !progress_ ||
               progress_->goOn(std::min(1.0, static_cast<double>(done) / static_cast<double>(total_)));
    }

private:
    Progress* progress_;
    std::size_t total_;
    std::size_t stride_;
    std::size_t next_ = 0;
};

/// A part of a larger work: where it tells 0 to 1, the whole hears `begin` to `end`.
class PartialProgress : public Progress {
public:
    /// `whole` may be null and must live longer.
    PartialProgress(Progress* whole, double begin, double end) : whole_(whole), begin_(begin), end_(end) {}

    [[nodiscard]] bool goOn(double fraction) override {
        return !whole_ || whole_->goOn(begin_ + fraction * (end_ - begin_));
    }

private:
    Progress* whole_;
    double begin_;
    double end_;
};

} // namespace tabulon
