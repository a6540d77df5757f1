// Work that may take long, as whoever does it sees the one who waits: it tells how far it is and hears
// whether it is still wanted. The bar with its button is ProgressPanels.h's affair.
#pragma once

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

} // namespace tabulon
