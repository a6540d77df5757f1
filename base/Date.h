// A moment in time or none, eight bytes. Formatting for people is not here.
#pragma once

#include "base/Clock.h"

#include <bit>
#include <cstdint>

namespace tabulon {

/// Seconds since 2001-01-01 00:00 UTC as a double, or null. Every double is kept to the bit, infinities and
/// NaNs included, but for the one NaN pattern that stands for null, which becomes another NaN.
class Date {
public:
    /// Seconds from 1970-01-01 00:00 UTC to 2001-01-01 00:00 UTC.
    static constexpr double kReferenceUnixSeconds = 978307200.0;

    constexpr Date() noexcept = default;

    static Date fromReferenceSeconds(double seconds) noexcept {
        Date date;
        date.seconds_ = seconds;
        if (date.isNull())
            date.seconds_ = std::bit_cast<double>(kNullBits + 1);
        return date;
    }
    static Date fromUnixSeconds(double seconds) noexcept {
        return fromReferenceSeconds(seconds - kReferenceUnixSeconds);
    }
    static Date now(const Clock& clock) { return fromReferenceSeconds(clock.secondsSinceReferenceDate()); }

    bool isNull() const noexcept { return bits() == kNullBits; }
    /// Requires a date that is not null.
    double referenceSeconds() const noexcept { return seconds_; }
    double unixSeconds() const noexcept { return seconds_ + kReferenceUnixSeconds; }

    /// The same bits: null equals null.
    friend bool operator==(Date a, Date b) noexcept { return a.bits() == b.bits(); }

private:
    static constexpr std::uint64_t kNullBits = 0x7FF87AB000000001u;

    std::uint64_t bits() const noexcept { return std::bit_cast<std::uint64_t>(seconds_); }

    double seconds_ = std::bit_cast<double>(kNullBits);
};

} // namespace tabulon
