// The present moment, as a service, so that tests can hold it still. Time zones are not here: a formatted
// local date is the business of whoever shows it.
#pragma once

namespace tabulon {

class Clock {
public:
    virtual ~Clock() = default;

    /// Seconds since 2001-01-01 00:00 UTC, fraction included.
    virtual double secondsSinceReferenceDate() const = 0;
};

} // namespace tabulon
