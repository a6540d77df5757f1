// A point in time that may be null, in eight bytes. Formatting is in text/DateFormat.h.
#pragma once

#include "base/Clock.h"

#include <bit>
#include <cstdint>

namespace tabulon {

/// Seconds since 2001-01-01 00:00 UTC as a double, or null. All bits of a double are kept, those of
/// infinities and NaNs too. One NaN pattern represents null; `fromReferenceSeconds` replaces it by another
/// NaN.
class Date {
public:
    /// Seconds from 1970-01-01 00:00 UTC to 2001-01-01 00:00 UTC.
    static constexpr double kReferenceUnixSeconds = 978307200.0;

    /// Constructs null.
    constexpr Date() noexcept = default;

    /// Returns the date that is so many seconds after 2001-01-01 00:00 UTC; never null.
    static Date fromReferenceSeconds(double seconds) noexcept {
        Date date;
        date.seconds_ = seconds;
        if (date.isNull())
            date.seconds_ = std::bit_cast<double>(kNullBits + 1);
        return date;
    }
    /// Returns the date that is so many seconds after 1970-01-01 00:00 UTC; never null.
    static Date fromUnixSeconds(double seconds) noexcept {
        return fromReferenceSeconds(seconds - kReferenceUnixSeconds);
    }
    /// Returns the current time of `clock`, with the fraction of a second that it has; never null.
    static Date now(const Clock& clock) { return fromReferenceSeconds(clock.secondsSinceReferenceDate()); }

    /// Returns true for null only, not for a NaN or an infinity.
    bool isNull() const noexcept { return bits() == kNullBits; }
    /// Returns the seconds since 2001-01-01 00:00 UTC; they may be infinite or NaN. Requires: not null.
    double referenceSeconds() const noexcept { return seconds_; }
    /// Returns the seconds since 1970-01-01 00:00 UTC, rounded to a double. Requires: not null.
    double unixSeconds() const noexcept { return seconds_ + kReferenceUnixSeconds; }

    /// Returns true if the bits are equal: null equals null, a NaN equals itself, and 0 differs from -0.
    friend bool operator==(Date a, Date b) noexcept { return a.bits() == b.bits(); }

private:
    static constexpr std::uint64_t kNullBits = 0x7FF87AB000000001u;

    std::uint64_t bits() const noexcept { return std::bit_cast<std::uint64_t>(seconds_); }

    /// The seconds after 2001-01-01 00:00 UTC, or the pattern of null.
    double seconds_ = std::bit_cast<double>(kNullBits);
};

} // namespace tabulon
